#pragma once

#include "prefs/panes/PreferencePane.h"

#include <utility>
#include <vector>

class NotificationCenter;
class QCheckBox;
class UserDefaults;
struct MetadataLine;
namespace Ui {
class RBMetadataPrefViewCtl;
}

/// The metadata pane: which texts stand on a collage, where, and in which colours. The store is not written before
/// commitEditing().
class RBMetadataPrefViewCtl final : public PreferencePane {
public:
    /// Both must outlive this; the centre hears of each commit.
    RBMetadataPrefViewCtl(UserDefaults &defaults, NotificationCenter &notifications);
    ~RBMetadataPrefViewCtl() override;

    QString identifier() const override;
    QIcon toolbarItemImage() const override;
    QString toolbarItemLabel() const override;

    /// These turn the boxes of the heading's lines on and off. The two of the time stamps stay as they are, being no
    /// lines of the heading.
    void checkAll();
    void uncheckAll();

protected:
    void loadView(QWidget &view) override;
    void awakeFromNib() override;
    bool commitControls() override;

private:
    void checkLines(bool on);

    UserDefaults &defaults_;
    NotificationCenter &notifications_;
    std::unique_ptr<Ui::RBMetadataPrefViewCtl> ui_;
    std::vector<std::pair<QCheckBox *, const MetadataLine &>> checkBoxes_; // of the form
};
