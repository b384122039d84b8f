#pragma once

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
class MovieList;
class SerialQueue;
class TrustedFolders;
class UserDefaults;
class Workspace;

/// Shows the user the job that runs. Main thread.
class JobsView {
public:
    virtual ~JobsView() = default;

    enum class Kind { Loading = 0, Export = 1 };

    virtual void jobStarted(Kind kind, const QString &text) = 0;
    /// `fraction` from 0 to 1; a null image leaves the last one; `remaining` is empty while it cannot be told.
    virtual void jobProgress(double fraction, const QString &main, const QString &ing, const QImage &image,
                             const QString &remaining) = 0;
    /// `failures` holds a line for each movie of which no image was written, or one that does not show all.
    virtual void jobEnded(Kind kind, const QStringList &failures) = 0;
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

    void runExport(const QString &outputFolder);
    void finish(JobsView::Kind kind, const QStringList &failures);

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
    std::unique_ptr<SerialQueue> exportQueue; // from the first export on
};
