#pragma once

#include "Shared/FrameSource.h"
#include "platform/threads/CancelFlag.h"
#include "render/TileFrames.h"

#include <memory>

/// Frames from the source that the user has chosen.
namespace ChosenFrames {

/// Those of a collage's tiles; starts with the first one. `grabber`, of use to the tool alone, and `cancelled` must
/// outlive them.
std::unique_ptr<TileFrames> ofTiles(FrameSource source, FrameGrabber &grabber, const MovieTiles &tiles,
                                    const CancelFlag &cancelled);

/// A single one, at its own size.
GrabbedFrame at(FrameSource source, FrameGrabber &grabber, const QString &moviePath, double seconds,
                const CancelFlag &cancelled);

} // namespace ChosenFrames
