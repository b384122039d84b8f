#include "app/loading/LoadingJob.h"

#include "Shared/FrameGrabber.h"
#include "Shared/PreferenceKeys.h"
#include "app/loading/MovieCandidates.h"
#include "collage/KTMovieObject.h"
#include "online/SupportedFormats.h"
#include "online/VXConfigManager.h"
#include "platform/store/UserDefaults.h"

#include <cstdio>
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

void LoadingJob::loadMediasThread(const QStringList &paths)
{
    const QStringList candidates = findCandidates(paths);
    const int count = static_cast<int>(candidates.size());
    for (int index = 0; index < count && !services.bLoadingCanceled; ++index) {
        services.observer.loading(index, count, candidates.at(index));
        loadMovie(candidates.at(index));
    }
    services.observer.loadingEnded();
}

QStringList LoadingJob::findCandidates(const QStringList &paths) const
{
    MovieCandidates::Events events;
    events.unreadable = [](const QString & /*path*/, const QString &error) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(error));
    };
    events.folder = [this](const QString &path, qsizetype /*movies*/) { services.observer.folderFound(path); };
    return MovieCandidates::expand(paths, GlobalFun::getSupportedFmts(VXConfigManager(services.defaults)),
                                   services.defaults.boolValue(PreferenceKeys::appSupportVob), events,
                                   services.bLoadingCanceled);
}

void LoadingJob::loadMovie(const QString &path) const
{
    const auto movie = loader.load(path, services.bLoadingCanceled).movie;
    if (!movie) {
        return;
    }
    const GrabbedFrame frame = services.grabber.createThumbnail(path, thumbnailTime, services.bLoadingCanceled);
    movie->setImgThumbnail(fitted(frame.picture, services.devicePixelRatio));
    movie->setImgPreview(services.renderPreview(*movie));
    services.observer.loaded(movie);
}
