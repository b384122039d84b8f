#include "app/window/MainWindowController.h"

#include "Shared/PreferenceKeys.h"
#include "collage/KTMovieObject.h"
#include "online/SupportedFormats.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/OpenPanel.h"
#include "platform/desktop/WindowActivation.h"
#include "platform/store/UserDefaults.h"
#include "platform/widgets/SymbolicIcon.h"
#include "platform/widgets/WindowPlacement.h"
#include "ui_MainWindowController.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>

#include <chrono>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// What a cancelled job gets to end before the program ends without it.
constexpr std::chrono::seconds patience(10);

} // namespace

MainWindowController::MainWindowController(Services windowServices) :
    services(std::move(windowServices)), ui(std::make_unique<Ui::MainWindowController>()), model(aryItems)
{
    ui->setupUi(this);
    ui->tableView->setMovies(model);
    addToolbarItems();
    connectActions();
    ui->tableView->setReloadDelegate(this);
    ui->tableView->setDropDelegate(this);
    ui->tableView->setDroppedFiles(services.desktop.droppedFiles);
    loadingWndCtl = std::make_unique<VXLoadingWndCtl>(services.notifications, this);
    loadingWndCtl->addAction(ui->quit); // those of a window that a sheet blocks are not heard
    cancelObservation =
        services.notifications.observe(VXLoadingWndCtl::canceledNotification, [this] { loadingPrgCanceled(); });
    jobs = std::make_unique<MovieJobs>(MovieJobs::Services{.aryItems = aryItems,
                                                           .defaults = services.defaults,
                                                           .grabber = services.grabber,
                                                           .trustedFolders = services.trustedFolders,
                                                           .alert = services.desktop.alert,
                                                           .workspace = services.desktop.workspace,
                                                           .mainQueue = services.mainQueue},
                                       static_cast<JobsView &>(*this));
    collageEditing = std::make_unique<CollageEditing>(CollageEditing::Services{.defaults = services.defaults,
                                                                               .notifications = services.notifications,
                                                                               .alert = services.desktop.alert,
                                                                               .movies = aryItems,
                                                                               .tableView = *ui->tableView,
                                                                               .jobs = *jobs,
                                                                               .quit = *ui->quit},
                                                      *this);
    outputFolder = std::make_unique<OutputFolderControls>(
        OutputFolderControls::Widgets{ui->lblOutputPath, ui->btnBrowser, ui->btnOpen, ui->chkSameOrigin, ui->lblStatus},
        OutputFolderControls::Services{.defaults = services.defaults,
                                       .trustedFolders = services.trustedFolders,
                                       .desktop = services.desktop,
                                       .home = services.home,
                                       .moviePaths = [this] { return moviePaths(); }});
    outputFolder->showStoredFolder();
    ui->chkSameOrigin->setVisible(services.experimental);
    restoreLayout();
    ui->tableView->setFocus(); // the keyboard starts in the list
    ui->tableView->reloadData();
    updateActions();
}

MainWindowController::~MainWindowController() = default;

void MainWindowController::addToolbarItems()
{
    auto *space = new QWidget(ui->toolBar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui->toolBar->addWidget(space);
    ui->toolBar->addAction(ui->customcollage);
    ui->toolBar->addAction(ui->preferences);
    ui->importMovies->setIcon(symbolicIcon(u"import"_s));
    ui->deleteMovies->setIcon(symbolicIcon(u"delete"_s));
    ui->clearlibrary->setIcon(symbolicIcon(u"clear"_s));
    ui->customcollage->setIcon(symbolicIcon(u"customcollage"_s));
    ui->preferences->setIcon(symbolicIcon(u"preferences"_s));
}

void MainWindowController::connectActions()
{
    connect(ui->importMovies, &QAction::triggered, this, &MainWindowController::importMoviesDown);
    for (const QAction *item : {ui->deleteMovies, ui->menuDelete}) {
        connect(item, &QAction::triggered, this, &MainWindowController::deleteDown);
    }
    for (const QAction *item : {ui->clearlibrary, ui->menuClear}) {
        connect(item, &QAction::triggered, this, &MainWindowController::clearDown);
    }
    for (const QAction *item : {ui->customcollage, ui->menuCustomCollage}) {
        connect(item, &QAction::triggered, this, &MainWindowController::customCollageDown);
    }
    connect(ui->selectAll, &QAction::triggered, ui->tableView, &QAbstractItemView::selectAll);
    // Not activated(): some desktops send it at every click.
    connect(ui->tableView, &QAbstractItemView::doubleClicked, this, &MainWindowController::customCollageDown);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, ui->tableView, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &MainWindowController::customCollageDown);
    }
    connect(ui->preferences, &QAction::triggered, this, &MainWindowController::preferencesDown);
    connect(ui->start, &QAction::triggered, this, &MainWindowController::startDown);
    connect(ui->btnStart, &QPushButton::clicked, this, &MainWindowController::startDown);
    connect(ui->quit, &QAction::triggered, this, &MainWindowController::quit);
    connect(ui->about, &QAction::triggered, this, &MainWindowController::showAbout);
    connect(ui->tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindowController::updateActions);
}

void MainWindowController::appLaunched()
{
    outputFolder->appLaunched();
}

void MainWindowController::loadMediasWithPaths(const QStringList &paths, int index)
{
    jobs->loadMediasWithPaths(paths, index);
}

void MainWindowController::importMoviesDown()
{
    OpenPanelRequest request;
    //% "Import movies"
    request.title = qtTrId("import_panel_title");
    request.files = request.folders = request.multiple = true;
    request.extensions = GlobalFun::getSupportedFmts(services.experimental);
    services.desktop.openPanel.open(request, [this](const QStringList &paths) {
        if (!paths.isEmpty()) {
            loadMediasWithPaths(paths, 0);
        }
    });
}

void MainWindowController::deleteDown()
{
    aryItems.remove(ui->tableView->selectedMovies());
    ui->tableView->reloadData();
    updateActions();
}

void MainWindowController::deleteFileDown(MyTableView & /*table*/)
{
    deleteDown();
}

void MainWindowController::clearDown()
{
    aryItems.removeAll();
    ui->tableView->reloadData();
    updateActions();
}

void MainWindowController::startDown()
{
    ui->lblStatus->clear();
    jobs->startExport(outputFolder->outputPath());
}

void MainWindowController::customCollageDown()
{
    collageEditing->customCollageDown();
}

void MainWindowController::preferencesDown()
{
    services.showPreferences();
}

bool MainWindowController::validateDrop(int /*row*/, bool between)
{
    return between;
}

void MainWindowController::acceptDrop(const QStringList &paths, int row)
{
    loadMediasWithPaths(paths, row);
}

bool MainWindowController::validateToolbarItem(const QString &identifier)
{
    if (identifier == u"delete" || identifier == u"clearlibrary") {
        const bool hasMovies = aryItems.count() > 0;
        ui->btnStart->setEnabled(hasMovies);
        return hasMovies;
    }
    return identifier != u"customcollage" || !ui->tableView->selectedRows().empty();
}

void MainWindowController::updateActions()
{
    ui->deleteMovies->setEnabled(validateToolbarItem(u"delete"_s));
    ui->clearlibrary->setEnabled(validateToolbarItem(u"clearlibrary"_s));
    ui->customcollage->setEnabled(validateToolbarItem(u"customcollage"_s));
}

void MainWindowController::jobStarted(Kind kind, const QString &text)
{
    loadingWndCtl->setModel(static_cast<int>(kind));
    loadingWndCtl->startLoading(text, this);
}

void MainWindowController::jobProgress(double fraction, const QString &main, const QString &ing, const QImage &image,
                                       const QString &remaining)
{
    loadingWndCtl->updateProgress(fraction, main, ing, image);
    loadingWndCtl->setRemaining(remaining);
}

void MainWindowController::jobEnded(Kind kind, const QStringList &failures)
{
    loadingWndCtl->endLoading();
    ui->tableView->reloadData();
    updateActions();
    if (kind == Kind::Loading) {
        outputFolder->sameOriginDown();
    }
    if (!failures.isEmpty()) {
        //% "Trouble with %n movie(s): %1"
        ui->lblStatus->setText(qtTrId("status_failures", static_cast<int>(failures.size())).arg(failures.first()));
        ui->lblStatus->setToolTip(failures.join(u'\n'));
    }
    if (closing) { // later: the job still counts as running while it tells of its end
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    }
}

void MainWindowController::loadingPrgCanceled()
{
    jobs->cancel();
}

void MainWindowController::bringForward(const ActivationToken &token)
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    QWidget *sheet = QApplication::activeModalWidget();
    QWidget *front = sheet != nullptr ? sheet : this; // what a sheet hangs over cannot take the keyboard
    front->raise();
    if (QWindow *handle = front->windowHandle()) { // the desktop's own file panel has none here
        ::activateWindow(*handle, token);
    }
}

void MainWindowController::quit()
{
    // A question that is open would keep its job waiting.
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *question = qobject_cast<QMessageBox *>(window)) {
            question->reject();
        }
    }
    close();
}

void MainWindowController::closeEvent(QCloseEvent *event)
{
    closing = true;
    jobs->abort();
    collageEditing->cancel();
    if (jobs->isRunning()) {
        QTimer::singleShot(patience, this, &MainWindowController::giveUp);
        event->ignore(); // comes again when the job has ended
        return;
    }
    rememberLayout();
    event->accept();
    QApplication::quit();
}

/// For a job that cannot be interrupted, since it reads from a network disk that has gone.
void MainWindowController::giveUp()
{
    if (jobs->isRunning()) {
        rememberLayout();
        services.defaults.synchronize();
        std::_Exit(EXIT_FAILURE);
    }
}

QStringList MainWindowController::moviePaths() const
{
    QStringList paths;
    for (const auto &movie : aryItems.snapshot()) {
        paths += movie->filePath;
    }
    return paths;
}

void MainWindowController::rememberLayout()
{
    services.defaults.setData(PreferenceKeys::mainWindowGeometry, saveGeometry());
    services.defaults.setData(PreferenceKeys::movieTableColumns, ui->tableView->horizontalHeader()->saveState());
}

void MainWindowController::restoreLayout()
{
    if (const auto geometry = services.defaults.dataValue(PreferenceKeys::mainWindowGeometry)) {
        restoreGeometry(*geometry);
    }
    keepOnScreen(*this);
    if (const auto columns = services.defaults.dataValue(PreferenceKeys::movieTableColumns)) {
        ui->tableView->horizontalHeader()->restoreState(*columns);
    }
}

void MainWindowController::showAbout()
{
    //% "About Tessarine"
    const QString title = qtTrId("about_title");
    //% "Turns movie files into collages: one picture that shows a whole movie."
    const QString text = qtTrId("about_text");
    //% "OK"
    services.desktop.alert.tell(title, text, qtTrId("OK"));
}
