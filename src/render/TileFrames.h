#pragma once

#include "Shared/FrameGrabber.h"
#include "Shared/PictureOptions.h"
#include "media/PictureTraits.h"
#include "render/PictureFilter.h"

#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>

/// The tiles of one movie's collage, and how their pictures are to be.
struct MovieTiles {
    QString moviePath;
    QSize movieSize; ///< of its pictures as they are shown, in pixels
    PictureTraits traits;
    PictureOptions options;
    double share = 0.0; ///< seconds from a tile's time on in which another picture may be taken for it
    std::int64_t count = 0;
    // Called on other threads.
    std::function<double(std::int64_t tile)> timeOf; ///< seconds
    std::function<QSize(std::int64_t tile)> sizeOf;  ///< of the picture on the collage, in pixels

    /// The size to which the tile's picture may be scaled before it is painted; empty where that would enlarge it,
    /// which is left to the canvas.
    QSize reducedSize(std::int64_t tile) const;
    /// What the tile's upright picture goes through.
    QString filters(std::int64_t tile) const { return PictureFilter::chain(options, traits, reducedSize(tile)); }
};

/// The frames of one movie's tiles in reading order. Made and asked on one thread; its end stops what is under way.
class TileFrames {
public:
    virtual ~TileFrames() = default;

    /// Waits for the next tile's frame; of no use once the flag that it was made with is set. `waiting`, which may be
    /// empty, hears each second for how long the frame has been worked at, from the second one on; on the same thread.
    virtual GrabbedFrame next(const FrameGrabber::Waiting &waiting) = 0;
};
