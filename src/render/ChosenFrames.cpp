#include "render/ChosenFrames.h"

#include "media/VXMediaInfoItem.h"
#include "render/DecodedFrames.h"
#include "render/ToolFrames.h"

namespace {

constexpr QSize largestStill(640, 640); // pixels; lists show smaller ones

}

std::unique_ptr<TileFrames> ChosenFrames::ofTiles(FrameGrabber &grabber, const MovieTiles &tiles,
                                                  const CancelFlag &cancelled)
{
    if (tiles.options.source == FrameSource::Tool) {
        return std::make_unique<ToolFrames>(grabber, tiles, cancelled);
    }
    return std::make_unique<DecodedFrames>(tiles, cancelled);
}

GrabbedFrame ChosenFrames::at(double seconds, FrameGrabber &grabber, const VXMediaInfoItem &movie,
                              const PictureOptions &options, const CancelFlag &cancelled)
{
    const QSize size(movie.pixWidth, movie.pixHeight);
    const QSize still = size.scaled(largestStill, Qt::KeepAspectRatio);
    const MovieTiles tiles{.moviePath = movie.filePath,
                           .movieSize = size,
                           .traits = movie.traits,
                           .options = options,
                           .count = 1,
                           .timeOf = [seconds](std::int64_t) { return seconds; },
                           .sizeOf = [still](std::int64_t) { return still; }};
    if (options.source == FrameSource::Tool) {
        return FrameGrabber::decode(grabber.grab({movie.filePath, seconds, tiles.filters(0)}, cancelled, {}));
    }
    return DecodedFrames(tiles, cancelled).next({});
}

QImage ChosenFrames::inShape(const PictureOptions &options, const QImage &picture, QSize movieSize)
{
    const QSize shape = movieSize.scaled(picture.size(), Qt::KeepAspectRatio);
    return options.displayAspect && !shape.isEmpty()
               ? picture.scaled(shape, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
               : picture;
}
