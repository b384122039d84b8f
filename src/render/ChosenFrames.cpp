#include "render/ChosenFrames.h"

#include "render/DecodedFrames.h"
#include "render/ToolFrames.h"

std::unique_ptr<TileFrames> ChosenFrames::ofTiles(FrameSource source, FrameGrabber &grabber, const MovieTiles &tiles,
                                                  const CancelFlag &cancelled)
{
    if (source == FrameSource::Tool) {
        return std::make_unique<ToolFrames>(grabber, tiles, cancelled);
    }
    return std::make_unique<DecodedFrames>(source, tiles, cancelled);
}

GrabbedFrame ChosenFrames::at(FrameSource source, FrameGrabber &grabber, const QString &moviePath, double seconds,
                              const CancelFlag &cancelled)
{
    if (source == FrameSource::Tool) {
        return grabber.createThumbnail(moviePath, seconds, cancelled);
    }
    const auto timeOf = [seconds](std::int64_t) { return seconds; };
    const auto sizeOf = [](std::int64_t) { return QSize(); };
    return DecodedFrames(source, {moviePath, {}, 1, timeOf, sizeOf}, cancelled).next({});
}
