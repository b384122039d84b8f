#include "prefs/panes/VXTrustedPathViewCtl.h"

#include "platform/desktop/OpenPanel.h"
#include "platform/threads/MainQueue.h"
#include "platform/widgets/SymbolicIcon.h"
#include "prefs/TrustedFolders.h"
#include "prefs/panes/FolderTableModel.h"
#include "ui_VXTrustedPathViewCtl.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

VXTrustedPathViewCtl::VXTrustedPathViewCtl(TrustedFolders &trustedFolders, OpenPanel &panel, MainQueue &queue) :
    folders(trustedFolders), openPanel(panel), mainQueue(queue), model(std::make_unique<FolderTableModel>())
{
    // The list may be changed on any thread, while folders are loaded for instance.
    folders.setChangedHandler([this, life = std::weak_ptr(alive)] {
        mainQueue.async([this, life] {
            if (!life.expired()) {
                reloadTable();
            }
        });
    });
}

VXTrustedPathViewCtl::~VXTrustedPathViewCtl()
{
    folders.setChangedHandler({});
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
    ui = std::make_unique<Ui::VXTrustedPathViewCtl>();
    ui->setupUi(&view);
    ui->tableView->setModel(model.get());
    ui->tableView->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    QObject::connect(ui->btnAdd, &QPushButton::clicked, &view, [this] { addFolderDown(); });
    QObject::connect(ui->btnRemove, &QPushButton::clicked, &view, [this] { removeFolderDown(); });
    QObject::connect(ui->tableView->selectionModel(), &QItemSelectionModel::selectionChanged, &view,
                     [this] { enableRemoving(); });
    auto *deleteKey = new QShortcut(QKeySequence::Delete, ui->tableView);
    deleteKey->setContext(Qt::WidgetShortcut);
    QObject::connect(deleteKey, &QShortcut::activated, &view, [this] { removeFolderDown(); });
}

void VXTrustedPathViewCtl::awakeFromNib()
{
    folders.load();
    reloadTable();
}

bool VXTrustedPathViewCtl::commitControls()
{
    folders.commit();
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
    openPanel.open(request, [this, life = std::weak_ptr(alive)](const QStringList &paths) {
        if (!life.expired()) {
            addFolders(paths);
        }
    });
}

void VXTrustedPathViewCtl::addFolders(const QStringList &paths)
{
    for (const QString &path : paths) {
        folders.addToBookmarkWithURL(path);
    }
    reloadTable();
}

void VXTrustedPathViewCtl::removeFolderDown()
{
    QList<int> rows;
    for (const QModelIndex &index : ui->tableView->selectionModel()->selectedRows()) {
        rows << index.row(); // the list has the same rows: other threads add to its end only
    }
    folders.removeRows(rows);
    reloadTable();
}

void VXTrustedPathViewCtl::reloadTable()
{
    model->reloadData(folders.items());
    if (ui) {
        enableRemoving();
    }
}

void VXTrustedPathViewCtl::enableRemoving()
{
    ui->btnRemove->setEnabled(ui->tableView->selectionModel()->hasSelection());
}
