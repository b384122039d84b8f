#pragma once

#include "app/list/ExportReport.h"
#include "app/list/ListedMovies.h"
#include "app/loading/EqualImages.h"
#include "app/loading/JobSequence.h"
#include "platform/threads/CancelFlag.h"

#include <QImage>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>
#include <memory>
#include <thread>

class AlertPanel;
class FrameGrabber;
class KTMovieObject;
class MainQueue;
class SerialQueue;
class TrustedFolders;
class UserDefaults;
class Workspace;

/// How far a job is.
struct JobProgress {
    double fraction = 0.0; ///< of the bar, from 0 to 1: of the batch, or of one movie's collage
    double overall = 0.0;  ///< of the whole job, from 0 to 1
    int movie = 0;         ///< of an export: which one of `movieCount`, from 1
    int movieCount = 0;
    QString main;
    QString ing;       ///< the file in work
    QImage image;      ///< null leaves the last one
    QString remaining; ///< empty while it cannot be told
};

/// Shows the user the job that runs. Main thread.
class JobsView {
public:
    virtual ~JobsView() = default;

    enum class Kind { Loading = 0, Export = 1 };

    virtual void jobStarted(Kind kind, const QString &text) = 0;
    virtual void jobProgress(const JobProgress &progress) = 0;
    /// The report is that of an export; empty after a batch.
    virtual void jobEnded(Kind kind, const ExportReport &report) = 0;
};

/// The window's work in the background: batches of paths on their way into the list, and exports of it, one at a time.
/// What is handed over while a batch is loading or waits for its turn becomes part of that batch.
/// Made, called and ended on the main thread.
class MovieJobs {
public:
    /// All of it must outlive this.
    struct Services {
        MovieList &aryItems;
        UserDefaults &defaults;
        FrameGrabber &grabber;
        TrustedFolders &trustedFolders;
        AlertPanel &alert;
        Workspace &workspace;
        MainQueue &mainQueue;
    };

    MovieJobs(Services services, JobsView &view);
    /// Cancels what runs and waits for it.
    ~MovieJobs();
    MovieJobs(const MovieJobs &) = delete;
    MovieJobs &operator=(const MovieJobs &) = delete;

    /// Loads the paths, now or when their turn comes; their movies stand at the index in the list, the last one first.
    void loadMediasWithPaths(const QStringList &paths, int indexToInsert);
    /// Exports the whole list, now or when its turn comes.
    void startExport(const QString &outputFolder);
    /// Exports some movies of the list.
    void startExport(const QString &outputFolder, const MovieList::Movies &movies);

    /// Ends the running job soon and forgets those that wait. The movie that is being loaded is finished, or left out
    /// when that takes longer than a user waits.
    void cancel();
    /// The same for a program that ends: nothing is finished.
    void abort();
    /// Whether a job is running, or held off.
    bool isRunning() const { return sequence_.isRunning(); }

    /// While none is running: lets none start until release().
    void hold();
    void release() { sequence_.finished(); }

private:
    class Loading;
    class ExportReporter;

    void runExport(const QString &outputFolder, MovieSource &source, const MovieList::Movies &movies);
    void finish(JobsView::Kind kind, const ExportReport &report);

    Services services_;
    JobsView &view_;
    JobSequence sequence_;
    std::shared_ptr<Loading> batch_; // that takes what is handed over: waits or runs, and is not cancelled
    CancelFlag bLoadingCanceled = false;
    CancelFlag bMovieDropped = false;
    QTimer cancelPatience_; // runs out when a cancelled batch does not end
    CancelFlag bExportCanceled = false;
    EqualImages previews_; // of the loading thread
    std::jthread loadingThread_;
    std::unique_ptr<ListedMovies> chosen_;    // the last ones that were exported by themselves
    std::unique_ptr<SerialQueue> exportQueue; // from the first export on
};
