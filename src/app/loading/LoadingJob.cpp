#include "app/loading/LoadingJob.h"

#include "Shared/FrameGrabber.h"
#include "Shared/PreferenceKeys.h"
#include "app/loading/EqualImages.h"
#include "app/loading/MovieCandidates.h"
#include "collage/KTMovieObject.h"
#include "online/SupportedFormats.h"
#include "online/VXConfigManager.h"
#include "platform/Log.h"
#include "platform/files/PathText.h"
#include "platform/store/UserDefaults.h"
#include "render/CollagePreview.h"
#include "render/MetadataText.h"

#include <cstdio>
#include <new>
#include <utility>

namespace {

/// Where in a movie its thumbnail is taken, seconds: behind the black that many begin with.
constexpr double thumbnailTime = 2.0;
/// What the list shows of a picture, in points; a movie's own size would cost a hundred times as much in a long list.
constexpr QSizeF thumbnailSize(96.0, 64.0);

QImage fitted(const QImage &picture, qreal devicePixelRatio)
{
    const QSize size = (thumbnailSize * devicePixelRatio).toSize();
    const bool isSmall = picture.width() <= size.width() && picture.height() <= size.height();
    return isSmall ? picture : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

LoadingJob::LoadingJob(Services jobServices) : services(std::move(jobServices)), loader(services.defaults) {}

void LoadingJob::add(const QStringList &paths, int indexToInsert)
{
    const std::scoped_lock lock(guard);
    added.push_back({paths, indexToInsert});
}

bool LoadingJob::hasMore() const
{
    const std::scoped_lock lock(guard);
    return !added.empty();
}

void LoadingJob::loadMediasThread()
{
    for (;; ++next) {
        takeUp();
        if (services.bLoadingCanceled || next == candidates.size()) {
            break;
        }
        services.observer.loading(static_cast<int>(next), static_cast<int>(candidates.size()), candidates[next].path);
        loadMovie(candidates[next]);
    }
    services.observer.loadingEnded();
}

/// Before each movie, so that the count that is shown is that of all that has been handed over.
void LoadingJob::takeUp()
{
    std::vector<Handover> taken;
    {
        const std::scoped_lock lock(guard);
        taken.swap(added);
    }
    for (const Handover &each : taken) {
        const QStringList paths = findCandidates(each.paths);
        for (const QString &path : paths) {
            candidates.push_back({path, each.indexToInsert});
        }
    }
}

QStringList LoadingJob::findCandidates(const QStringList &paths) const
{
    MovieCandidates::Events events;
    events.unreadable = [](const QString & /*path*/, const QString &error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
    };
    events.linkedTooOften = [](const QString &path) {
        qCWarning(lcTessarine).noquote() << "too many links lead to" << PathText::forDisplay(path);
    };
    events.folder = [this](const QString &path) { services.observer.folderFound(path); };
    return MovieCandidates::expand(paths, GlobalFun::getSupportedFmts(VXConfigManager(services.defaults)),
                                   services.defaults.boolValue(PreferenceKeys::appSupportVob), events,
                                   services.bLoadingCanceled);
}

QImage LoadingJob::preview(const KTMovieObject &movie) const
{
    const QString facts = getMetaStrWithObject(movie, services.defaults.int32Value(PreferenceKeys::metadataText));
    return renderCollagePreview(listPreviewSize, services.devicePixelRatio, movie.settings(), facts,
                                previewPlaceholder(services.devicePixelRatio));
}

void LoadingJob::loadMovie(const Candidate &candidate) const
try {
    const auto movie = loader.load(candidate.path, services.bMovieDropped).movie;
    if (!movie) {
        return;
    }
    const GrabbedFrame frame = services.grabber.createThumbnail(candidate.path, thumbnailTime, services.bMovieDropped);
    if (services.bMovieDropped) {
        return; // there is no thumbnail, or none of this movie
    }
    movie->setImgThumbnail(fitted(frame.picture, services.devicePixelRatio));
    movie->setImgPreview(services.previews.shared(preview(*movie)));
    services.observer.loaded(movie, candidate.indexToInsert);
} catch (const std::bad_alloc &) { // this movie's frames are too large for the memory there is
    qCWarning(lcTessarine).noquote() << "error: not enough memory for" << PathText::forDisplay(candidate.path);
}
