#include "app/loading/MovieLoader.h"

#include "Shared/PictureOptions.h"
#include "collage/DefaultParameters.h"
#include "collage/KTMovieObject.h"
#include "media/VXMediaInfo.h"
#include "platform/Log.h"
#include "platform/files/PathText.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

using namespace Qt::StringLiterals;

namespace {

QString notAMovie(VXMediaType type)
{
    switch (type) {
    case VXMediaType::Audio:
        return u"has sound but no moving picture"_s;
    case VXMediaType::Image:
        return u"is a still image, not a movie"_s;
    default:
        return u"holds no movie"_s;
    }
}

/// The width with which pictures of this height have the shape in which the movie is shown.
std::int32_t shownWidth(const VXMediaInfoItem &movie)
{
    constexpr double widest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(std::round(movie.pixWidth * movie.traits.sampleAspect), 1.0, widest));
}

} // namespace

MovieLoader::MovieLoader(const UserDefaults &defaults) : defaults_(defaults) {}

Result<std::shared_ptr<KTMovieObject>> MovieLoader::load(const QString &path, const CancelFlag &cancelled) const
try {
    auto movie = std::make_shared<KTMovieObject>();
    movie->filePath = path;
    std::optional<MediaError> error;
    VXMediaInfo::dumpMediaInfo(*movie, error, cancelled);
    if (error) {
        qCInfo(lcTessarine).noquote() << u"error:" + PathText::forDisplay(path) + u": " + error->description;
        return failure(error->description);
    }
    if (movie->eumMediaType != VXMediaType::Movie) {
        return failure(notAMovie(movie->eumMediaType));
    }
    if (PictureOptions::fromDefaults(defaults_).displayAspect) {
        movie->pixWidth = shownWidth(*movie);
    }
    movie->setSettings(DefaultParameters::settingsOfNewMovie(defaults_, *movie));
    return movie;
} catch (const std::bad_alloc &) {
    return failure(u"there is not enough memory to read it"_s);
}
