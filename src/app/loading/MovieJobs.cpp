#include "app/loading/MovieJobs.h"

#include "app/loading/LoadingJob.h"
#include "app/loading/MovieList.h"
#include "app/loading/RemainingTime.h"
#include "platform/files/PathText.h"
#include "platform/threads/AlternateStack.h"
#include "platform/threads/MainQueue.h"
#include "platform/threads/SerialQueue.h"
#include "prefs/TrustedFolders.h"
#include "render/ExportJob.h"
#include "render/ExportObserver.h"

#include <QGuiApplication>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Longer than any sound movie needs for its thumbnail.
constexpr std::chrono::seconds patienceAfterCancel(5);

QString waitingText(const ExportProgress &progress)
{
    //% "Waiting for frame %1 of %2 for %n second(s)"
    return qtTrId("export_waiting", static_cast<int>(progress.waited.count()))
        .arg(progress.tile + 1)
        .arg(progress.tileCount);
}

} // namespace

/// A batch, and what it tells on its thread to the list and to the main thread.
class MovieJobs::Loading final : public LoadingObserver, public std::enable_shared_from_this<Loading> {
public:
    explicit Loading(MovieJobs &movieJobs) :
        jobs(movieJobs),
        job({jobs.services.defaults, jobs.services.grabber, jobs.previews, qGuiApp->devicePixelRatio(), *this,
             jobs.bLoadingCanceled, jobs.bMovieDropped})
    {
    }

    void add(const QStringList &paths, int indexToInsert) { job.add(paths, indexToInsert); }
    void start()
    {
        jobs.view.jobStarted(JobsView::Kind::Loading, u"Loading..."_s);
        jobs.bLoadingCanceled = false;
        jobs.bMovieDropped = false;
        jobs.cancelPatience.stop();
        estimate = {};
        walk();
    }

private:
    void walk()
    {
        jobs.loadingThread = std::jthread([self = shared_from_this()] {
            const AlternateStack stack;
            self->job.loadMediasThread();
        });
    }
    void loading(int index, int count, const QString &filePath) override
    {
        const double fraction = static_cast<double>(index) / count;
        jobs.services.mainQueue.async([self = shared_from_this(), fraction, filePath,
                                       remaining = estimate.after(fraction),
                                       text = u"Loading %1 of %2"_s.arg(index + 1).arg(count)] {
            self->jobs.view.jobProgress(fraction, text, PathText::forDisplay(filePath), {}, remaining);
        });
    }
    void loaded(const std::shared_ptr<KTMovieObject> &movie, int indexToInsert) override
    {
        // Always at the same place: movies that come together stand in the list in reverse order.
        jobs.services.aryItems.insert(indexToInsert, movie);
    }
    void folderFound(const QString &path) override { jobs.services.trustedFolders.addToBookmarkWithURL(path); }
    void loadingEnded() override
    {
        jobs.services.mainQueue.async([self = shared_from_this()] { self->walkEnded(); });
    }
    /// On the main thread, as handing over is: nothing can come between the look for more and the end.
    void walkEnded()
    {
        jobs.loadingThread.join();
        if (!jobs.bLoadingCanceled && job.hasMore()) {
            walk();
            return;
        }
        if (jobs.batch.get() == this) {
            jobs.batch.reset();
        }
        jobs.finish(JobsView::Kind::Loading, {});
    }

    MovieJobs &jobs;
    LoadingJob job;
    RemainingTime estimate;
};

/// Takes what an export tells on its thread to the main thread.
class MovieJobs::ExportReporter final : public ExportObserver, public std::enable_shared_from_this<ExportReporter> {
public:
    explicit ExportReporter(MovieJobs &movieJobs) : jobs(movieJobs) {}

    void updateProgress(const ExportProgress &progress) override
    {
        const double fraction = static_cast<double>(progress.tile) / static_cast<double>(progress.tileCount);
        const double done = (progress.movie + fraction) / progress.movieCount;
        jobs.services.mainQueue.async(
            [self = shared_from_this(), fraction, progress,
             remaining = progress.waited.count() > 0 ? waitingText(progress) : estimate.after(done),
             text = u"Creating Thumbnails ... %1 of %2"_s.arg(progress.movie + 1).arg(progress.movieCount)] {
                self->jobs.view.jobProgress(fraction, text, PathText::forDisplay(progress.filePath), progress.picture,
                                            remaining);
            });
    }
    void movieEnded(const ExportResult &result) override
    {
        if (result.kind != ExportResult::Kind::Written) {
            failures += PathText::forDisplay(result.filePath) + u": " + result.reason;
        }
    }
    void exportEnded() override
    {
        jobs.services.mainQueue.async(
            [self = shared_from_this()] { self->jobs.finish(JobsView::Kind::Export, self->failures); });
    }

private:
    MovieJobs &jobs;
    QStringList failures;
    const RemainingTime estimate;
};

MovieJobs::MovieJobs(Services jobServices, JobsView &jobsView) : services(std::move(jobServices)), view(jobsView)
{
    cancelPatience.setSingleShot(true);
    cancelPatience.setInterval(patienceAfterCancel);
    cancelPatience.callOnTimeout([this] { bMovieDropped = true; });
}

MovieJobs::~MovieJobs()
{
    abort(); // the threads end with their members
}

void MovieJobs::loadMediasWithPaths(const QStringList &paths, int indexToInsert)
{
    const bool isNew = batch == nullptr;
    if (isNew) {
        batch = std::make_shared<Loading>(*this);
    }
    batch->add(paths, indexToInsert);
    if (isNew) {
        sequence.add([loading = batch] { loading->start(); });
    }
}

void MovieJobs::startExport(const QString &outputFolder)
{
    sequence.add([this, outputFolder] { runExport(outputFolder); });
}

void MovieJobs::runExport(const QString &outputFolder)
{
    if (!exportQueue) {
        exportQueue = std::make_unique<SerialQueue>(u"loadQueue"_s);
    }
    view.jobStarted(JobsView::Kind::Export, u"Creating thumbnails..."_s);
    bExportCanceled = false;
    const auto reporter = std::make_shared<ExportReporter>(*this);
    const auto job = std::make_shared<ExportJob>(
        ExportServices{services.aryItems, services.grabber, services.defaults, services.alert, services.workspace,
                       *reporter, [outputFolder] { return outputFolder; }, bExportCanceled});
    exportQueue->async([job, reporter] { job->run(); });
}

void MovieJobs::cancel()
{
    sequence.dropWaiting();
    batch.reset(); // what is handed over from now on is a new wish
    bLoadingCanceled = true;
    bExportCanceled = true;
    if (!cancelPatience.isActive()) {
        cancelPatience.start();
    }
}

void MovieJobs::abort()
{
    cancel();
    bMovieDropped = true;
}

void MovieJobs::hold()
{
    sequence.add([] {}); // a job that does nothing, until somebody says that it has ended
}

void MovieJobs::finish(JobsView::Kind kind, const QStringList &failures)
{
    view.jobEnded(kind, failures);
    sequence.finished();
}
