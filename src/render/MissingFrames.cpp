#include "render/MissingFrames.h"

#include "Shared/FrameGrabber.h"
#include "Shared/TimeFormat.h"
#include "collage/KTMovieObject.h"
#include "platform/files/FileSystem.h"
#include "render/ExportObserver.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Whether the collage's range reaches beyond the end of the movie, as far as that is known.
bool isRangeOutside(const KTMovieObject &movie)
{
    const CollageSettings settings = movie.settings();
    return movie.duration > 0.0 && std::max(settings.startPoint, settings.endPoint) >= movie.duration;
}

} // namespace

void MissingFrames::add(double seconds, const GrabbedFrame &frame)
{
    ++tiles_;
    if (frame.isNew) {
        isTail_ = false;
        return;
    }
    if (problem_.isEmpty()) {
        problem_ = frame.problem;
    }
    if (missing_++ == 0) {
        firstTime_ = seconds;
        isTail_ = true;
    }
    lastTime_ = seconds;
}

void MissingFrames::tell(const KTMovieObject &movie, ExportResult &result) const
{
    result.tileCount = tiles_;
    result.missingFrames = missing_;
    if (tiles_ > 0 && missing_ == 0) {
        return;
    }
    // Of a movie that is gone nothing new is shown, whatever stands on its image.
    const bool isThere = FileSystem::status(movie.filePath).has_value();
    result.kind = isThere ? ExportResult::Kind::Incomplete : ExportResult::Kind::Failed;
    if (tiles_ == 0) {
        result.reason = u"its collage has no rows or no columns"_s;
        return;
    }
    result.isRangeOutside = problem_.isEmpty() && isRangeOutside(movie);
    const QString cause = likelyCause(movie);
    result.reason = u"%1 of %2 frames could not be grabbed"_s.arg(missing_).arg(tiles_) +
                    (cause.isEmpty() ? QString() : u": " + cause);
}

QString MissingFrames::likelyCause(const KTMovieObject &movie) const
{
    if (!problem_.isEmpty()) {
        return problem_;
    }
    const QString length = GlobalFun::getTimeStringBySecond(movie.duration);
    if (isRangeOutside(movie)) {
        const CollageSettings range = movie.settings();
        return u"the range from %1 to %2 goes beyond the end of the movie at %3"_s.arg(
            GlobalFun::getTimeStringBySecond(range.startPoint), GlobalFun::getTimeStringBySecond(range.endPoint),
            length);
    }
    const QString first = GlobalFun::getTimeStringBySecond(firstTime_);
    if (firstTime_ < 1.0 && lastTime_ < 1.0) {
        return u"no picture can be reached at %1, does it begin later?"_s.arg(first);
    }
    if (isTail_ && movie.duration > 0.0) {
        return u"no picture from %1 on, is its length of %2 wrong?"_s.arg(first, length);
    }
    return u"no picture at %1, is it damaged there?"_s.arg(first);
}
