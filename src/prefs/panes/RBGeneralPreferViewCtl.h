#pragma once

#include "prefs/panes/PreferencePane.h"

class UserDefaults;
namespace Ui {
class RBGeneralPreferViewCtl;
}

/// The general pane: what happens to a collage once it is written, the image format, and what pictures look like. The
/// store is not written before commitEditing().
class RBGeneralPreferViewCtl final : public PreferencePane {
public:
    /// The store must outlive this.
    explicit RBGeneralPreferViewCtl(UserDefaults &defaults);
    ~RBGeneralPreferViewCtl() override;

    QString identifier() const override;
    QIcon toolbarItemImage() const override;
    QString toolbarItemLabel() const override;

protected:
    void loadView(QWidget &view) override;
    void awakeFromNib() override;
    bool commitControls() override;

private:
    UserDefaults &defaults_;
    std::unique_ptr<Ui::RBGeneralPreferViewCtl> ui_;
};
