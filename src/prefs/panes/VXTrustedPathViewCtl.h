#pragma once

#include "platform/desktop/OpenPanel.h"
#include "prefs/panes/PreferencePane.h"

#include <QStringList>

class FolderTableModel;
class MainQueue;
class TrustedFolders;
namespace Ui {
class VXTrustedPathViewCtl;
}

/// The trusted paths pane: shows the folders that the user has granted, and lets the user add and remove some. Loading
/// its view loads the list from the store.
class VXTrustedPathViewCtl final : public PreferencePane {
public:
    /// All must outlive this; the queue is the main thread's.
    VXTrustedPathViewCtl(TrustedFolders &folders, OpenPanel openPanel, MainQueue &mainQueue);
    ~VXTrustedPathViewCtl() override;

    QString identifier() const override;
    QIcon toolbarItemImage() const override;
    QString toolbarItemLabel() const override;

    /// Lets the user choose folders and adds them, in the order chosen.
    void addFolderDown();
    /// Takes the selected rows out of the list; the store follows with commitEditing().
    void removeFolderDown();

protected:
    void loadView(QWidget &view) override;
    void awakeFromNib() override;
    bool commitControls() override;

private:
    void addFolders(const QStringList &paths);
    void reloadTable();
    void enableRemoving();

    TrustedFolders &folders_;
    const OpenPanel openPanel_;
    MainQueue &mainQueue_;
    std::unique_ptr<Ui::VXTrustedPathViewCtl> ui_;
    std::unique_ptr<FolderTableModel> model_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true); ///< what comes later looks whether it is
};
