#include "app/loading/MovieJobs.h"

#include "app/loading/LoadingJob.h"
#include "app/loading/MovieList.h"
#include "app/loading/RemainingTime.h"
#include "platform/files/PathText.h"
#include "platform/threads/AlternateStack.h"
#include "platform/threads/DispatchQueue.h"
#include "platform/threads/SerialQueue.h"
#include "prefs/TrustedFolders.h"
#include "render/ExportJob.h"
#include "render/ExportObserver.h"

#include <QGuiApplication>

#include <utility>

using namespace Qt::StringLiterals;

/// Takes what a batch tells on its thread to the list and to the main thread.
class MovieJobs::LoadingReporter final : public LoadingObserver, public std::enable_shared_from_this<LoadingReporter> {
public:
    LoadingReporter(MovieJobs &movieJobs, int index) : jobs(movieJobs), indexToInsert(index) {}

    void loading(int index, int count, const QString &filePath) override
    {
        const double fraction = static_cast<double>(index) / count;
        jobs.services.mainQueue.async([self = shared_from_this(), fraction, filePath,
                                       remaining = estimate.after(fraction),
                                       text = u"Loading %1 of %2"_s.arg(index + 1).arg(count)] {
            self->jobs.view.jobProgress(fraction, text, PathText::forDisplay(filePath), {}, remaining);
        });
    }
    // Always at the same place: the movies of a batch stand in the list in reverse order.
    void loaded(const std::shared_ptr<KTMovieObject> &movie) override
    {
        jobs.services.aryItems.insert(indexToInsert, movie);
    }
    void folderFound(const QString &path) override { jobs.services.trustedFolders.addToBookmarkWithURL(path); }
    void loadingEnded() override
    {
        jobs.services.mainQueue.async([self = shared_from_this()] {
            self->jobs.loadingThread.join();
            self->jobs.finish(JobsView::Kind::Loading, {});
        });
    }

private:
    MovieJobs &jobs;
    const int indexToInsert;
    const RemainingTime estimate;
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
            [self = shared_from_this(), fraction, progress, remaining = estimate.after(done),
             text = u"Creating Thumbnails ... %1 of %2"_s.arg(progress.movie + 1).arg(progress.movieCount)] {
                self->jobs.view.jobProgress(fraction, text, PathText::forDisplay(progress.filePath), progress.picture,
                                            remaining);
            });
    }
    void imageWritten(const QString & /*moviePath*/, const QString & /*imagePath*/) override {}
    void movieFailed(const QString &moviePath, const QString &reason) override
    {
        failures += PathText::forDisplay(moviePath) + u": " + reason;
    }
    void framesMissing(const QString & /*moviePath*/, std::int64_t /*missing*/, std::int64_t /*tileCount*/) override {}
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

MovieJobs::MovieJobs(Services jobServices, JobsView &jobsView) : services(std::move(jobServices)), view(jobsView) {}

MovieJobs::~MovieJobs()
{
    cancelAll(); // the threads end with their members
}

void MovieJobs::loadMediasWithPaths(const QStringList &paths, int indexToInsert)
{
    sequence.add([this, paths, indexToInsert] { startLoading(paths, indexToInsert); });
}

void MovieJobs::startLoading(const QStringList &paths, int indexToInsert)
{
    view.jobStarted(JobsView::Kind::Loading, u"Loading..."_s);
    bLoadingCanceled = false;
    loadingThread = std::jthread([this, paths, ratio = qGuiApp->devicePixelRatio(),
                                  reporter = std::make_shared<LoadingReporter>(*this, indexToInsert)] {
        const AlternateStack stack;
        LoadingJob({services.defaults, services.grabber, services.renderPreview, ratio, *reporter, bLoadingCanceled})
            .loadMediasThread(paths);
    });
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
    bLoadingCanceled = true;
    bExportCanceled = true;
}

void MovieJobs::cancelAll()
{
    sequence.dropWaiting();
    cancel();
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
