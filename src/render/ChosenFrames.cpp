#include "render/ChosenFrames.h"

#include "render/DecodedFrames.h"
#include "render/ToolFrames.h"

std::unique_ptr<TileFrames> ChosenFrames::ofTiles(const PictureOptions &options, FrameGrabber &grabber,
                                                  const MovieTiles &tiles, const CancelFlag &cancelled)
{
    if (options.source == FrameSource::Tool) {
        return std::make_unique<ToolFrames>(grabber, tiles, cancelled);
    }
    return std::make_unique<DecodedFrames>(options.source, tiles, cancelled);
}

GrabbedFrame ChosenFrames::at(const PictureOptions &options, FrameGrabber &grabber, const QString &moviePath,
                              double seconds, const CancelFlag &cancelled)
{
    if (options.source == FrameSource::Tool) {
        return grabber.createThumbnail(moviePath, seconds, cancelled);
    }
    const auto timeOf = [seconds](std::int64_t) { return seconds; };
    const auto sizeOf = [](std::int64_t) { return QSize(); };
    return DecodedFrames(options.source, {moviePath, {}, 1, timeOf, sizeOf}, cancelled).next({});
}

QImage ChosenFrames::inShape(const PictureOptions &options, const QImage &picture, QSize movieSize)
{
    const QSize shape = movieSize.scaled(picture.size(), Qt::KeepAspectRatio);
    return options.displayAspect && !shape.isEmpty()
               ? picture.scaled(shape, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
               : picture;
}
