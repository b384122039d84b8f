#pragma once

#include "platform/threads/CancelFlag.h"
#include "render/TileFrames.h"

#include <memory>

class VXMediaInfoItem;

/// Frames from the source that the user has chosen.
namespace ChosenFrames {

/// Those of a collage's tiles; starts with the first one. `grabber`, of use to the tool alone, and `cancelled` must
/// outlive them.
std::unique_ptr<TileFrames> ofTiles(FrameGrabber &grabber, const MovieTiles &tiles, const CancelFlag &cancelled);

/// A single one, for a list: at its own size, or at a smaller one where that spares much work.
GrabbedFrame at(double seconds, FrameGrabber &grabber, const VXMediaInfoItem &movie, const PictureOptions &options,
                const CancelFlag &cancelled);

/// The picture as it is to be seen by itself: in the movie's shape, where that is asked for. Never larger.
QImage inShape(const PictureOptions &options, const QImage &picture, QSize movieSize);

} // namespace ChosenFrames
