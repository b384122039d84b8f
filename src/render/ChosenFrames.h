#pragma once

#include "Shared/PictureOptions.h"
#include "platform/threads/CancelFlag.h"
#include "render/TileFrames.h"

#include <memory>

/// Frames from the source that the user has chosen.
namespace ChosenFrames {

/// Those of a collage's tiles; starts with the first one. `grabber`, of use to the tool alone, and `cancelled` must
/// outlive them.
std::unique_ptr<TileFrames> ofTiles(const PictureOptions &options, FrameGrabber &grabber, const MovieTiles &tiles,
                                    const CancelFlag &cancelled);

/// A single one, at its own size.
GrabbedFrame at(const PictureOptions &options, FrameGrabber &grabber, const QString &moviePath, double seconds,
                const CancelFlag &cancelled);

/// The picture as it is to be seen by itself: in the movie's shape, where that is asked for. Never larger.
QImage inShape(const PictureOptions &options, const QImage &picture, QSize movieSize);

} // namespace ChosenFrames
