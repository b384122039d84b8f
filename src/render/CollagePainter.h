#pragma once

#include "collage/CollageSettings.h"
#include "platform/threads/CancelFlag.h"
#include "render/CollageLayout.h"
#include "render/CollageTexts.h"
#include "render/TextBlock.h"

#include <QImage>

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

class CollageCanvas;
class QPaintDevice;

/// The picture of one tile.
struct TilePicture {
    // Not explicit: mostly there is nothing to be said of the time.
    TilePicture(QImage picture = {}, std::optional<double> time = {}) : image(std::move(picture)), seconds(time) {}

    QImage image;                  ///< null: the tile stays without one
    std::optional<double> seconds; ///< of the movie, where it is not that which the tile is to show
};

/// Paints one movie's collage: background, text block, and tiles with frames, shadows and time stamps.
/// Made for one collage; needs a QGuiApplication, may live on any thread.
class CollagePainter {
public:
    /// Gives the picture for the tile (counted from 0) at `seconds` into the movie.
    using TileSource = std::function<TilePicture(std::int64_t tile, double seconds)>;

    CollagePainter(const CollageSettings &settings, const CollageTextStyles &styles, const CollageTextItems &items,
                   const QString &metadata);

    /// Where everything goes, text block included.
    const CollageLayout &layout() const { return place_; }

    /// An image of the collage's size to paint on: without an alpha channel where the background is opaque. Null when
    /// such a canvas cannot exist or there is no memory for it.
    QImage makeCanvas() const;

    /// Paints on any device, asking for each tile's picture in reading order. False as soon as `cancelled`
    /// is seen set, before the next tile.
    bool paint(QPaintDevice &device, const TileSource &pictureOf, const CancelFlag &cancelled) const;

private:
    void paintTile(CollageCanvas &canvas, const TileSource &pictureOf, std::int32_t row, std::int32_t column) const;
    void paintStamp(CollageCanvas &canvas, const QRectF &picture, double seconds) const;

    CollageSettings settings_;
    CollageTextStyles styles_;
    CollageTextItems items_;
    TextBlock text_;
    CollageLayout place_;
};
