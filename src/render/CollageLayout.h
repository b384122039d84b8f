#pragma once

#include "collage/CollageSettings.h"

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QSizeF>

#include <cstdint>

/// Computes where everything lies on a collage and which second each tile shows. Coordinates are pixels from the
/// canvas's top left, y downwards, unrounded. Every value of the settings is allowed; isPossible() says whether a
/// canvas of that size can exist at all.
class CollageLayout {
public:
    /// Without a text block; `withText` adds one.
    explicit CollageLayout(const CollageSettings &settings);

    /// The same collage with a block of text of this measured size above the tiles.
    CollageLayout withText(QSizeF measured) const;

    /// The room for the text block when it is measured: as wide as the collage, as high as the grid with its margins.
    QSizeF textBox() const;

    QSizeF canvasSize() const;
    /// The canvas in whole pixels: nothing of it is cut off.
    QSize pixelSize() const;
    /// Whether an image of that size can be made and encoded: 1 to 65,500 pixels a side, 500 million altogether.
    bool isPossible() const;

    QRectF textRect() const;
    QRectF tileRect(std::int32_t row, std::int32_t column) const;
    /// The picture within its tile: inside the frame.
    QRectF pictureRect(const QRectF &tile) const;
    /// Where the time stamp's top left stands; `position` is the corner as the user defaults store numbers it.
    static QPointF stampPoint(const QRectF &picture, std::int64_t position);

    /// 0 when there are no rows or no columns.
    std::int64_t tileCount() const;
    /// The second that the tile shows; tiles count from 0 in reading order.
    double tileTime(std::int64_t tile) const;
    /// Seconds of the movie that each tile stands for: from its time to the next one's. 0 or more.
    double tileShare() const;

private:
    double tileStep() const;

    CollageSettings settings_;
    QSizeF text_{0.0, 0.0};
};
