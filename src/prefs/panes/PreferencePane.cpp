#include "prefs/panes/PreferencePane.h"

QWidget &PreferencePane::view()
{
    if (!page_) {
        page_ = std::make_unique<QWidget>();
        loadView(*page_);
        awakeFromNib();
    }
    return *page_;
}
