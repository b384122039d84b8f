#include "app/window/MainWindowController.h"

#include "Shared/PreferenceKeys.h"
#include "app/list/ListSummary.h"
#include "collage/KTMovieObject.h"
#include "online/SupportedFormats.h"
#include "platform/MakeForQt.h"
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

MainWindowController::MainWindowController(Services services) :
    services_(std::move(services)),
    ui_(std::make_unique<Ui::MainWindowController>()),
    history_(aryItems),
    model_(aryItems)
{
    ui_->setupUi(this);
    ui_->tableView->setMovies(model_);
    addToolbarItems();
    makeParts();
    makeListParts();
    connectActions();
    outputFolder_->showStoredFolder();
    ui_->chkSameOrigin->setVisible(services_.experimental);
    restoreLayout();
    ui_->tableView->setFocus(); // the keyboard starts in the list
    ui_->tableView->reloadData();
}

MainWindowController::~MainWindowController() = default;

void MainWindowController::makeParts()
{
    makeJobParts();
    outputFolder_ = std::make_unique<OutputFolderControls>(
        OutputFolderControls::Widgets{.lblOutputPath = ui_->lblOutputPath,
                                      .btnBrowser = ui_->btnBrowser,
                                      .btnOpen = ui_->btnOpen,
                                      .chkSameOrigin = ui_->chkSameOrigin,
                                      .statusLine = ui_->statusLine},
        OutputFolderControls::Services{.defaults = services_.defaults,
                                       .trustedFolders = services_.trustedFolders,
                                       .desktop = services_.desktop,
                                       .home = services_.home,
                                       .moviePaths = [this] { return moviePaths(); }});
}

void MainWindowController::makeJobParts()
{
    loadingWndCtl = std::make_unique<VXLoadingWndCtl>(services_.notifications, this);
    loadingWndCtl->addAction(ui_->quit); // those of a window that a sheet blocks are not heard
    cancelObservation_ =
        services_.notifications.observe(VXLoadingWndCtl::canceledNotification, [this] { loadingPrgCanceled(); });
    exportResults_ = std::make_unique<ExportResults>(
        ExportResults::Services{
            .statusLine = *ui_->statusLine,
            .desktop = services_.desktop,
            .exportAgain = [this](const auto &movies) { jobs_->startExport(outputFolder_->outputPath(), movies); }},
        *this);
    jobSheet_ = std::make_unique<JobSheet>(JobSheet::Services{.sheet = *loadingWndCtl,
                                                              .window = *this,
                                                              .desktop = services_.desktop,
                                                              .results = *exportResults_,
                                                              .movies = aryItems,
                                                              .history = history_,
                                                              .ended = [this](auto kind) { jobEnded(kind); }});
    jobs_ = std::make_unique<MovieJobs>(MovieJobs::Services{.aryItems = aryItems,
                                                            .defaults = services_.defaults,
                                                            .grabber = services_.grabber,
                                                            .trustedFolders = services_.trustedFolders,
                                                            .alert = services_.desktop.alert,
                                                            .workspace = services_.desktop.workspace,
                                                            .mainQueue = services_.mainQueue},
                                        *jobSheet_);
}

/// What works on the list in the table.
void MainWindowController::makeListParts()
{
    MyTableView &tableView = *ui_->tableView;
    tableView.setReloadDelegate(this);
    tableView.setDropDelegate(this);
    tableView.setDroppedFiles(services_.desktop.droppedFiles);
    collageEditing_ =
        std::make_unique<CollageEditing>(CollageEditing::Services{.defaults = services_.defaults,
                                                                  .notifications = services_.notifications,
                                                                  .alert = services_.desktop.alert,
                                                                  .movies = aryItems,
                                                                  .history = history_,
                                                                  .tableView = tableView,
                                                                  .jobs = *jobs_,
                                                                  .quit = *ui_->quit},
                                         *this);
    listUndo_ = std::make_unique<ListUndo>(ListUndo::Services{.movies = aryItems,
                                                              .history = history_,
                                                              .jobs = *jobs_,
                                                              .tableView = tableView,
                                                              .undo = *ui_->undo,
                                                              .redo = *ui_->redo});
    listArranging_ = std::make_unique<ListArranging>(ListArranging::Services{.history = history_,
                                                                             .jobs = *jobs_,
                                                                             .model = model_,
                                                                             .tableView = tableView,
                                                                             .sortMenu = *ui_->menuSort,
                                                                             .moveUp = *ui_->moveUp,
                                                                             .moveDown = *ui_->moveDown});
}

void MainWindowController::addToolbarItems()
{
    auto *space = makeForQt<QWidget>(ui_->toolBar);
    space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui_->toolBar->addWidget(space);
    ui_->toolBar->addAction(ui_->customcollage);
    ui_->toolBar->addAction(ui_->preferences);
    ui_->importMovies->setIcon(symbolicIcon(u"import"_s));
    ui_->deleteMovies->setIcon(symbolicIcon(u"delete"_s));
    ui_->clearlibrary->setIcon(symbolicIcon(u"clear"_s));
    ui_->customcollage->setIcon(symbolicIcon(u"customcollage"_s));
    ui_->preferences->setIcon(symbolicIcon(u"preferences"_s));
}

void MainWindowController::connectActions()
{
    connect(ui_->importMovies, &QAction::triggered, this, &MainWindowController::importMoviesDown);
    for (const QAction *item : {ui_->deleteMovies, ui_->menuDelete}) {
        connect(item, &QAction::triggered, this, &MainWindowController::deleteDown);
    }
    for (const QAction *item : {ui_->clearlibrary, ui_->menuClear}) {
        connect(item, &QAction::triggered, this, &MainWindowController::clearDown);
    }
    for (const QAction *item : {ui_->customcollage, ui_->menuCustomCollage}) {
        connect(item, &QAction::triggered, this, &MainWindowController::customCollageDown);
    }
    connect(ui_->selectAll, &QAction::triggered, ui_->tableView, &QAbstractItemView::selectAll);
    // Not activated(): some desktops send it at every click.
    connect(ui_->tableView, &QAbstractItemView::doubleClicked, this, &MainWindowController::customCollageDown);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = makeForQt<QShortcut>(key, ui_->tableView, nullptr, nullptr, Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, &MainWindowController::customCollageDown);
    }
    connect(ui_->preferences, &QAction::triggered, this, &MainWindowController::preferencesDown);
    connect(ui_->start, &QAction::triggered, this, &MainWindowController::startDown);
    connect(ui_->btnStart, &QPushButton::clicked, this, &MainWindowController::startDown);
    connect(ui_->quit, &QAction::triggered, this, &MainWindowController::quit);
    connect(ui_->about, &QAction::triggered, this, &MainWindowController::showAbout);
    connect(ui_->tableView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &MainWindowController::updateActions);
    connect(ui_->filter, &QAction::triggered, ui_->filterBar, &FilterBar::open);
    connect(ui_->filterBar, &FilterBar::textChanged, this, &MainWindowController::filter);
    connect(ui_->filterBar, &FilterBar::left, ui_->tableView, [this] { ui_->tableView->setFocus(); });
    connect(&model_, &QAbstractItemModel::modelReset, this, &MainWindowController::listShown);
}

void MainWindowController::appLaunched()
{
    outputFolder_->appLaunched();
}

void MainWindowController::loadMediasWithPaths(const QStringList &paths, int index)
{
    jobs_->loadMediasWithPaths(paths, index);
}

void MainWindowController::importMoviesDown()
{
    OpenPanelRequest request;
    //% "Import movies"
    request.title = qtTrId("import_panel_title");
    request.files = request.folders = request.multiple = true;
    request.extensions = GlobalFun::getSupportedFmts(services_.experimental);
    services_.desktop.openPanel(request, [this](const QStringList &paths) {
        if (!paths.isEmpty()) {
            loadMediasWithPaths(paths, 0);
        }
    });
}

void MainWindowController::deleteDown()
{
    const std::vector<int> rows = ui_->tableView->selectedRows();
    history_.remove(ui_->tableView->selectedMovies());
    ui_->tableView->reloadData();
    if (!rows.empty()) {
        ui_->tableView->selectRowAlone(rows.front()); // the next movie
    }
}

void MainWindowController::deleteFileDown(MyTableView & /*table*/)
{
    deleteDown();
}

void MainWindowController::clearDown()
{
    history_.clear();
    ui_->tableView->reloadData();
}

void MainWindowController::startDown()
{
    ui_->statusLine->clear();
    jobs_->startExport(outputFolder_->outputPath());
}

void MainWindowController::customCollageDown()
{
    collageEditing_->customCollageDown();
}

void MainWindowController::preferencesDown()
{
    services_.showPreferences();
}

bool MainWindowController::validateDrop(int /*row*/, bool between)
{
    return between;
}

void MainWindowController::acceptDrop(const QStringList &paths, int row)
{
    loadMediasWithPaths(paths, static_cast<int>(model_.listIndex(row)));
}

void MainWindowController::moveRows(int row)
{
    listArranging_->moveSelected(row);
}

void MainWindowController::filter(const QString &text)
{
    model_.setFilter(MovieFilter(text));
    ui_->tableView->reloadData();
}

bool MainWindowController::validateToolbarItem(const QString &identifier)
{
    if (identifier == u"delete" || identifier == u"clearlibrary") {
        const bool hasMovies = aryItems.count() > 0;
        ui_->btnStart->setEnabled(hasMovies);
        return hasMovies;
    }
    return identifier != u"customcollage" || !ui_->tableView->selectedRows().empty();
}

void MainWindowController::updateActions()
{
    ui_->deleteMovies->setEnabled(validateToolbarItem(u"delete"_s));
    ui_->clearlibrary->setEnabled(validateToolbarItem(u"clearlibrary"_s));
    ui_->customcollage->setEnabled(validateToolbarItem(u"customcollage"_s));
}

void MainWindowController::listShown()
{
    ui_->statusLine->summarize(listSummary(model_.allMovies(), model_.movies().size()));
    updateActions();
}

void MainWindowController::jobEnded(JobsView::Kind kind)
{
    ui_->tableView->reloadData();
    if (kind == JobsView::Kind::Loading) {
        outputFolder_->sameOriginDown();
    }
    if (closing_) { // later: the job still counts as running while it tells of its end
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    }
}

void MainWindowController::loadingPrgCanceled()
{
    jobs_->cancel();
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
    // The job that has asked an open question would wait for the answer.
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
    closing_ = true;
    jobs_->abort();
    collageEditing_->cancel();
    if (jobs_->isRunning()) {
        QTimer::singleShot(patience, this, &MainWindowController::giveUp);
        event->ignore(); // comes again when the job has ended
        return;
    }
    rememberLayout();
    event->accept();
    QApplication::quit();
}

/// Ends the program when the job cannot be interrupted, for example because it reads from a network disk that has gone.
void MainWindowController::giveUp()
{
    if (jobs_->isRunning()) {
        rememberLayout();
        services_.defaults.synchronize();
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
    services_.defaults.setData(PreferenceKeys::mainWindowGeometry, saveGeometry());
    services_.defaults.setData(PreferenceKeys::movieTableColumns, ui_->tableView->horizontalHeader()->saveState());
}

void MainWindowController::restoreLayout()
{
    if (const auto geometry = services_.defaults.dataValue(PreferenceKeys::mainWindowGeometry)) {
        restoreGeometry(*geometry);
    }
    keepOnScreen(*this);
    if (const auto columns = services_.defaults.dataValue(PreferenceKeys::movieTableColumns)) {
        ui_->tableView->horizontalHeader()->restoreState(*columns);
    }
}

void MainWindowController::showAbout()
{
    //% "About Tessarine"
    const QString title = qtTrId("about_title");
    //% "Turns movie files into collages: one picture that shows a whole movie."
    const QString text = qtTrId("about_text");
    //% "OK"
    services_.desktop.alert.tell(title, text, qtTrId("OK"));
}
