#pragma once

#include <QColor>

#include <cstdint>

/// How one movie's collage looks and which stretch of the movie it shows. A value; nothing here is checked.
/// Lengths are pixels of the collage, times seconds from the beginning of the movie.
struct CollageSettings {
    double borderWidth = 20.0; ///< margin around the whole grid
    QColor backgroundColor = Qt::black;
    double gridBorderWidth = 3.0; ///< frame around each tile's picture, inside the tile
    QColor gridBorderColor = Qt::yellow;
    double columeSpace = 4.0; ///< gap between neighbouring columns
    double rowSpace = 4.0;    ///< gap between neighbouring rows
    double gridWidth = 300.0; ///< one tile
    double gridHeight = 200.0;
    std::int32_t rowNumber = 2;
    std::int32_t columeNumber = 3;
    double startPoint = 0.0; ///< time of the first tile
    double endPoint = 0.0;   ///< time of the last tile
    bool gridShadowed = false;
    bool autoHeight = true; ///< the editor derives gridHeight from gridWidth

    bool operator==(const CollageSettings &) const = default;
};
