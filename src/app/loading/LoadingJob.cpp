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
#include "render/ChosenFrames.h"
#include "render/CollagePreview.h"
#include "render/MetadataText.h"

#include <cstdio>
#include <new>

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

LoadingJob::LoadingJob(Services services) : services_(services), loader_(services_.defaults) {}

void LoadingJob::add(const QStringList &paths, int indexToInsert)
{
    const std::scoped_lock lock(guard_);
    added_.push_back({paths, indexToInsert});
}

bool LoadingJob::hasMore() const
{
    const std::scoped_lock lock(guard_);
    return !added_.empty();
}

void LoadingJob::loadMediasThread()
{
    for (;; ++next_) {
        takeUp();
        if (services_.bLoadingCanceled || next_ == candidates_.size()) {
            break;
        }
        services_.observer.loading(static_cast<int>(next_), static_cast<int>(candidates_.size()),
                                   candidates_[next_].path);
        loadMovie(candidates_[next_]);
    }
    services_.observer.loadingEnded();
}

/// Before each movie, so that the count that is shown is that of all that has been handed over.
void LoadingJob::takeUp()
{
    std::vector<Handover> taken;
    {
        const std::scoped_lock lock(guard_);
        taken.swap(added_);
    }
    for (const Handover &each : taken) {
        const QStringList paths = findCandidates(each.paths);
        for (const QString &path : paths) {
            candidates_.push_back({path, each.indexToInsert});
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
    events.folder = [this](const QString &path) { services_.observer.folderFound(path); };
    return MovieCandidates::expand(paths, GlobalFun::getSupportedFmts(VXConfigManager(services_.defaults)),
                                   services_.defaults.boolValue(PreferenceKeys::appSupportVob), events,
                                   services_.bLoadingCanceled);
}

QImage LoadingJob::preview(const KTMovieObject &movie) const
{
    const QString facts = getMetaStrWithObject(movie, services_.defaults.int32Value(PreferenceKeys::metadataText));
    return renderCollagePreview(listPreviewSize, services_.devicePixelRatio, movie.settings(), facts,
                                previewPlaceholder(services_.devicePixelRatio));
}

void LoadingJob::loadMovie(const Candidate &candidate) const
try {
    const auto loaded = loader_.load(candidate.path, services_.bMovieDropped);
    if (!loaded) {
        return;
    }
    const auto &movie = *loaded;
    const PictureOptions options = PictureOptions::fromDefaults(services_.defaults);
    const GrabbedFrame frame =
        ChosenFrames::at(thumbnailTime, services_.grabber, *movie, options, services_.bMovieDropped);
    if (services_.bMovieDropped) {
        return; // there is no thumbnail, or none of this movie
    }
    const QImage picture = ChosenFrames::inShape(options, frame.picture, {movie->pixWidth, movie->pixHeight});
    movie->setImgThumbnail(fitted(picture, services_.devicePixelRatio));
    movie->setImgPreview(services_.previews.shared(preview(*movie)));
    services_.observer.loaded(movie, candidate.indexToInsert);
} catch (const std::bad_alloc &) { // this movie's frames are too large for the memory there is
    qCWarning(lcTessarine).noquote() << "error: not enough memory for" << PathText::forDisplay(candidate.path);
}
