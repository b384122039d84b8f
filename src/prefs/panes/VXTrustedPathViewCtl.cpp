#include "prefs/panes/VXTrustedPathViewCtl.h"

#include "platform/MakeForQt.h"
#include "platform/threads/MainQueue.h"
#include "platform/widgets/SymbolicIcon.h"
#include "prefs/TrustedFolders.h"
#include "prefs/panes/FolderTableModel.h"
#include "ui_VXTrustedPathViewCtl.h"

#include <QShortcut>

#include <utility>

using namespace Qt::StringLiterals;

VXTrustedPathViewCtl::VXTrustedPathViewCtl(TrustedFolders &folders, OpenPanel openPanel, MainQueue &mainQueue) :
    folders_(folders),
    openPanel_(std::move(openPanel)),
    mainQueue_(mainQueue),
    model_(std::make_unique<FolderTableModel>())
{
    // The list may be changed on any thread, while folders are loaded for instance.
    folders_.setChangedHandler([this, life = std::weak_ptr(alive_)] {
        mainQueue_.async([this, life] {
            if (!life.expired()) {
                reloadTable();
            }
        });
    });
}

VXTrustedPathViewCtl::~VXTrustedPathViewCtl()
{
    folders_.setChangedHandler({});
}

QString VXTrustedPathViewCtl::identifier() const
{
    return u"TrustedViewController"_s;
}

QIcon VXTrustedPathViewCtl::toolbarItemImage() const
{
    return symbolicIcon(u"prefs_paths"_s);
}

QString VXTrustedPathViewCtl::toolbarItemLabel() const
{
    //% "Trusted Paths"
    return qtTrId("Trusted Paths");
}

void VXTrustedPathViewCtl::loadView(QWidget &view)
{
    ui_ = std::make_unique<Ui::VXTrustedPathViewCtl>();
    ui_->setupUi(&view);
    ui_->tableView->setModel(model_.get());
    ui_->tableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    QObject::connect(ui_->btnAdd, &QPushButton::clicked, &view, [this] { addFolderDown(); });
    QObject::connect(ui_->btnRemove, &QPushButton::clicked, &view, [this] { removeFolderDown(); });
    QObject::connect(ui_->tableView->selectionModel(), &QItemSelectionModel::selectionChanged, &view,
                     [this] { enableRemoving(); });
    auto *deleteKey = makeForQt<QShortcut>(QKeySequence::Delete, ui_->tableView);
    deleteKey->setContext(Qt::WidgetShortcut);
    QObject::connect(deleteKey, &QShortcut::activated, &view, [this] { removeFolderDown(); });
}

void VXTrustedPathViewCtl::awakeFromNib()
{
    folders_.load();
    reloadTable();
}

bool VXTrustedPathViewCtl::commitControls()
{
    folders_.commit();
    return true;
}

void VXTrustedPathViewCtl::addFolderDown()
{
    OpenPanelRequest request;
    //% "Add Trusted Folders"
    request.title = qtTrId("trusted_folders_panel");
    //% "Add"
    request.prompt = qtTrId("trusted_folders_panel_add");
    request.folders = true;
    request.multiple = true;
    openPanel_(request, [this, life = std::weak_ptr(alive_)](const QStringList &paths) {
        if (!life.expired()) {
            addFolders(paths);
        }
    });
}

void VXTrustedPathViewCtl::addFolders(const QStringList &paths)
{
    for (const QString &path : paths) {
        folders_.addToBookmarkWithURL(path);
    }
    reloadTable();
}

void VXTrustedPathViewCtl::removeFolderDown()
{
    QList<int> rows;
    for (const QModelIndex &index : ui_->tableView->selectionModel()->selectedRows()) {
        rows << index.row(); // the list has the same rows: other threads add to its end only
    }
    folders_.removeRows(rows);
    reloadTable();
}

void VXTrustedPathViewCtl::reloadTable()
{
    model_->reloadData(folders_.items());
    if (ui_) {
        enableRemoving();
    }
}

void VXTrustedPathViewCtl::enableRemoving()
{
    ui_->btnRemove->setEnabled(ui_->tableView->selectionModel()->hasSelection());
}
