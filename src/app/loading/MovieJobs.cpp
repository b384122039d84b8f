#include "app/loading/MovieJobs.h"

#include "app/list/MovieList.h"
#include "app/loading/LoadingJob.h"
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
    explicit Loading(MovieJobs &jobs) :
        jobs_(jobs),
        job_({.defaults = jobs_.services_.defaults,
              .grabber = jobs_.services_.grabber,
              .previews = jobs_.previews_,
              .devicePixelRatio = qGuiApp->devicePixelRatio(),
              .observer = *this,
              .bLoadingCanceled = jobs_.bLoadingCanceled,
              .bMovieDropped = jobs_.bMovieDropped})
    {
    }

    void add(const QStringList &paths, int indexToInsert) { job_.add(paths, indexToInsert); }
    void start()
    {
        jobs_.view_.jobStarted(JobsView::Kind::Loading, u"Loading..."_s);
        jobs_.bLoadingCanceled = false;
        jobs_.bMovieDropped = false;
        jobs_.cancelPatience_.stop();
        estimate_ = {};
        walk();
    }

private:
    void walk()
    {
        jobs_.loadingThread_ = std::jthread([self = shared_from_this()] {
            const AlternateStack stack;
            self->job_.loadMediasThread();
        });
    }
    void loading(int index, int count, const QString &filePath) override
    {
        const double fraction = static_cast<double>(index) / count;
        jobs_.services_.mainQueue.async([self = shared_from_this(), fraction, filePath,
                                         remaining = estimate_.after(fraction),
                                         text = u"Loading %1 of %2"_s.arg(index + 1).arg(count)] {
            self->jobs_.view_.jobProgress({.fraction = fraction,
                                           .overall = fraction,
                                           .main = text,
                                           .ing = PathText::forDisplay(filePath),
                                           .image = {},
                                           .remaining = remaining});
        });
    }
    void loaded(const std::shared_ptr<KTMovieObject> &movie, int indexToInsert) override
    {
        // Always at the same place: movies that come together stand in the list in reverse order.
        jobs_.services_.aryItems.insert(indexToInsert, movie);
    }
    void folderFound(const QString &path) override { jobs_.services_.trustedFolders.addToBookmarkWithURL(path); }
    void loadingEnded() override
    {
        jobs_.services_.mainQueue.async([self = shared_from_this()] { self->walkEnded(); });
    }
    /// On the main thread, where files are handed over: so none can come between this check and the end.
    void walkEnded()
    {
        jobs_.loadingThread_.join();
        if (!jobs_.bLoadingCanceled && job_.hasMore()) {
            walk();
            return;
        }
        if (jobs_.batch_.get() == this) {
            jobs_.batch_.reset();
        }
        jobs_.finish(JobsView::Kind::Loading, {});
    }

    MovieJobs &jobs_;
    LoadingJob job_;
    RemainingTime estimate_;
};

/// Takes what an export tells on its thread to the main thread.
class MovieJobs::ExportReporter final : public ExportObserver, public std::enable_shared_from_this<ExportReporter> {
public:
    ExportReporter(MovieJobs &jobs, const MovieList::Movies &movies) : jobs_(jobs) { report_.movies = movies; }

    void updateProgress(const ExportProgress &progress) override
    {
        JobProgress job;
        job.fraction = static_cast<double>(progress.tile) / static_cast<double>(progress.tileCount);
        job.overall = (progress.movie + job.fraction) / progress.movieCount;
        job.movie = progress.movie + 1;
        job.movieCount = progress.movieCount;
        job.main = u"Creating Thumbnails ... %1 of %2"_s.arg(progress.movie + 1).arg(progress.movieCount);
        job.ing = PathText::forDisplay(progress.filePath);
        job.image = progress.picture;
        const auto estimate = estimate_.after(job.overall);
        job.remaining = progress.waited.count() > 0 ? waitingText(progress) : estimate;
        jobs_.services_.mainQueue.async([self = shared_from_this(), job] { self->jobs_.view_.jobProgress(job); });
    }
    void movieEnded(const ExportResult &result) override { report_.results.push_back(result); }
    void exportEnded() override
    {
        jobs_.services_.mainQueue.async([self = shared_from_this()] {
            ExportReport &report = self->report_;
            report.isCancelled = self->jobs_.bExportCanceled && report.results.size() < report.movies.size();
            self->jobs_.finish(JobsView::Kind::Export, report);
        });
    }

private:
    MovieJobs &jobs_;
    ExportReport report_; // the export's thread fills it, and gives it up with its end
    const RemainingTime estimate_;
};

MovieJobs::MovieJobs(Services services, JobsView &view) : services_(services), view_(view)
{
    cancelPatience_.setSingleShot(true);
    cancelPatience_.setInterval(patienceAfterCancel);
    cancelPatience_.callOnTimeout([this] { bMovieDropped = true; });
}

MovieJobs::~MovieJobs()
{
    abort(); // the threads end with their members
}

void MovieJobs::loadMediasWithPaths(const QStringList &paths, int indexToInsert)
{
    const bool isNew = batch_ == nullptr;
    if (isNew) {
        batch_ = std::make_shared<Loading>(*this);
    }
    batch_->add(paths, indexToInsert);
    if (isNew) {
        sequence_.add([loading = batch_] { loading->start(); });
    }
}

void MovieJobs::startExport(const QString &outputFolder)
{
    sequence_.add([this, outputFolder] { runExport(outputFolder, services_.aryItems, services_.aryItems.snapshot()); });
}

void MovieJobs::startExport(const QString &outputFolder, const MovieList::Movies &movies)
{
    sequence_.add([this, outputFolder, movies] {
        chosen_ = std::make_unique<ListedMovies>(services_.aryItems, movies);
        runExport(outputFolder, *chosen_, movies);
    });
}

void MovieJobs::runExport(const QString &outputFolder, MovieSource &source, const MovieList::Movies &movies)
{
    if (!exportQueue) {
        exportQueue = std::make_unique<SerialQueue>(u"loadQueue"_s);
    }
    view_.jobStarted(JobsView::Kind::Export, u"Creating thumbnails..."_s);
    bExportCanceled = false;
    const auto reporter = std::make_shared<ExportReporter>(*this, movies);
    const auto job = std::make_shared<ExportJob>(ExportServices{.aryItems = source,
                                                                .grabber = services_.grabber,
                                                                .defaults = services_.defaults,
                                                                .alert = services_.alert,
                                                                .workspace = services_.workspace,
                                                                .observer = *reporter,
                                                                .outputFolder = [outputFolder] { return outputFolder; },
                                                                .bExportCanceled = bExportCanceled});
    exportQueue->async([job, reporter] { job->run(); });
}

void MovieJobs::cancel()
{
    sequence_.dropWaiting();
    batch_.reset(); // what is handed over from now on is a new wish
    bLoadingCanceled = true;
    bExportCanceled = true;
    if (!cancelPatience_.isActive()) {
        cancelPatience_.start();
    }
}

void MovieJobs::abort()
{
    cancel();
    bMovieDropped = true;
}

void MovieJobs::hold()
{
    sequence_.add([] {}); // a job that does nothing, until somebody says that it has ended
}

void MovieJobs::finish(JobsView::Kind kind, const ExportReport &report)
{
    view_.jobEnded(kind, report);
    sequence_.finished();
}
