#pragma once

#include "app/list/ListHistory.h"
#include "app/list/MovieList.h"
#include "app/loading/MovieJobs.h"
#include "app/results/ExportResults.h"
#include "app/table/DropDelegate.h"
#include "app/table/MovieTableModel.h"
#include "app/table/MyTableView.h"
#include "app/table/TableReloadDelegate.h"
#include "app/window/CollageEditing.h"
#include "app/window/JobSheet.h"
#include "app/window/ListArranging.h"
#include "app/window/ListUndo.h"
#include "app/window/OutputFolderControls.h"
#include "app/window/VXLoadingWndCtl.h"
#include "platform/desktop/Desktop.h"
#include "platform/threads/NotificationCenter.h"

#include <QMainWindow>

#include <memory>

struct ActivationToken;

namespace Ui {
class MainWindowController;
}

/// The main window: the list of movies and what can be done with it. It wires the table, the output line, the progress
/// sheet and the background jobs; the work is theirs. Owned by AppDelegate; main thread.
class MainWindowController final : public QMainWindow, private TableReloadDelegate, private DropDelegate {
    Q_OBJECT

public:
    /// All of it must outlive this.
    struct Services {
        UserDefaults &defaults;
        FrameGrabber &grabber;
        TrustedFolders &trustedFolders;
        NotificationCenter &notifications;
        Desktop desktop;
        MainQueue &mainQueue;
        QString home;
        bool experimental; ///< the remote flag: whether collages can go beside their movies
        std::function<void()> showPreferences;
    };

    explicit MainWindowController(Services services);
    ~MainWindowController() override;

    /// The launch is complete: checks the output folder.
    void appLaunched();
    /// Loads paths into the list at the index, the last one first.
    void loadMediasWithPaths(const QStringList &paths, int index);
    /// Whether a batch or an export is running.
    bool isJobRunning() const { return jobs_->isRunning(); }
    /// Shows the window before all others; the window system may want the token for it.
    void bringForward(const ActivationToken &token);
    /// Closes the window as its close button does: what runs is cancelled and waited for first.
    void quit();

    void importMoviesDown();
    void deleteDown();
    void clearDown();
    void startDown();
    void customCollageDown();
    void preferencesDown();
    /// Whether the toolbar's item of that identifier can be used now; menu items always can. For the two that empty the
    /// list, the Start button follows the answer.
    bool validateToolbarItem(const QString &identifier);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void makeParts();
    void makeJobParts();
    void makeListParts();
    void connectActions();
    void addToolbarItems();
    void filter(const QString &text);
    void listShown();
    void updateActions();
    void loadingPrgCanceled();
    void jobEnded(JobsView::Kind kind);
    void showAbout();
    void giveUp();
    void rememberLayout();
    void restoreLayout();
    QStringList moviePaths() const;

    void deleteFileDown(MyTableView &table) override;
    bool validateDrop(int row, bool between) override;
    void acceptDrop(const QStringList &paths, int row) override;
    void moveRows(int row) override;

    Services services_;
    std::unique_ptr<Ui::MainWindowController> ui_;
    MovieList aryItems;
    ListHistory history_;
    MovieTableModel model_;
    std::unique_ptr<VXLoadingWndCtl> loadingWndCtl;
    std::unique_ptr<OutputFolderControls> outputFolder_;
    std::unique_ptr<ExportResults> exportResults_;
    std::unique_ptr<JobSheet> jobSheet_;
    std::unique_ptr<MovieJobs> jobs_;
    std::unique_ptr<CollageEditing> collageEditing_;
    std::unique_ptr<ListUndo> listUndo_;
    std::unique_ptr<ListArranging> listArranging_;
    NotificationCenter::Observation cancelObservation_;
    bool closing_ = false; // as soon as the running job has ended
};
