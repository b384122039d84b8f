#pragma once

#include <QImage>

#include <cstdint>

/// Gives the painter the picture of each tile.
class TileSource {
public:
    virtual ~TileSource() = default;

    /// The picture for the tile (counted from 0) at `seconds` into the movie; null leaves the tile without one.
    virtual QImage picture(std::int64_t tile, double seconds) = 0;
};
