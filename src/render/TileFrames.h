#pragma once

#include "Shared/FrameGrabber.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>

/// The tiles of one movie's collage.
struct MovieTiles {
    QString moviePath;
    QSize movieSize; ///< of its pictures, in pixels
    std::int64_t count = 0;
    // Called on other threads.
    std::function<double(std::int64_t tile)> timeOf; ///< seconds
    std::function<QSize(std::int64_t tile)> sizeOf;  ///< of the picture on the collage, in pixels
};

/// The frames of one movie's tiles in reading order. Made and asked on one thread; its end stops what is under way.
class TileFrames {
public:
    virtual ~TileFrames() = default;

    /// Waits for the next tile's frame; of no use once the flag that it was made with is set. `waiting`, which may be
    /// empty, hears each second for how long the frame has been worked at, from the second one on; on the same thread.
    virtual GrabbedFrame next(const FrameGrabber::Waiting &waiting) = 0;
};
