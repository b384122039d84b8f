#include "prefs/panes/PreferencePane.h"

QWidget &PreferencePane::view()
{
    if (!page) {
        page = std::make_unique<QWidget>();
        loadView(*page);
        awakeFromNib();
    }
    return *page;
}
