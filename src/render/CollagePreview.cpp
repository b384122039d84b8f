#include "render/CollagePreview.h"

#include "Shared/NumberText.h"
#include "Shared/SizeFit.h"
#include "platform/Log.h"
#include "platform/desktop/SvgImage.h"
#include "render/TextBlock.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double placeholderSide = 16.0;
constexpr QColor tileGrey(128, 128, 128);

/// From the pixels of the collage to the points of the preview.
struct Scale {
    double rate = 1.0;
    QPointF origin;

    QRectF map(const QRectF &rect) const
    {
        return {rect.topLeft() / rate + origin, QSizeF(rect.width() / rate, rect.height() / rate)};
    }
};

/// One direction of the grid, in points of the preview.
struct Axis {
    double start = 0.0; ///< of the first tile
    double pitch = 0.0; ///< from one tile to the next
    double extent = 0.0;
    std::int32_t count = 0;
};

/// Tiles from `first` to `last`; `step` neighbours are drawn as one.
struct Run {
    std::int64_t first = 0;
    std::int64_t last = -1;
    std::int64_t step = 1;
};

/// Fills what lies within the bounds; nothing for a rectangle that is empty, inside out or not a number.
void fill(QPainter &painter, const QRectF &bounds, const QRectF &rect, const QColor &color)
{
    if (rect.width() > 0.0 && rect.height() > 0.0 && rect.intersects(bounds)) {
        painter.fillRect(rect & bounds, color);
    }
}

/// The tiles that can be seen between `low` and `high`. Tiles less than a point apart cannot be told from each other
/// and count as one; so there are never more than there are points.
Run visibleRun(const Axis &axis, double low, double high)
{
    const std::int64_t last = std::int64_t{axis.count} - 1;
    if (last < 0 || !std::isfinite(axis.start) || !std::isfinite(axis.pitch) || !std::isfinite(axis.extent)) {
        return {};
    }
    if (std::abs(axis.pitch) < 1.0) {
        return {0, last, last + 1};
    }
    const double one = (low - axis.extent - axis.start) / axis.pitch;
    const double other = (high - axis.start) / axis.pitch;
    const auto limit = [last](double index) {
        return static_cast<std::int64_t>(std::clamp(index, 0.0, static_cast<double>(last)));
    };
    const std::int64_t first = limit(std::floor(std::min(one, other)));
    const auto most = static_cast<std::int64_t>(std::ceil(high - low));
    return {first, std::min(limit(std::ceil(std::max(one, other))), first + most)};
}

/// Paints the tiles of one preview.
class TilePainter {
public:
    TilePainter(QPainter &painter, const QRectF &bounds, const CollageSettings &settings, const CollageLayout &layout,
                const Scale &scale, const QImage &placeholder) :
        painter_(painter),
        bounds_(bounds),
        settings_(settings),
        layout_(layout),
        scale_(scale),
        placeholder_(placeholder)
    {
    }

    void paint() const
    {
        const QRectF first = scale_.map(layout_.tileRect(0, 0));
        const QRectF second = scale_.map(layout_.tileRect(1, 1));
        const Run rows = visibleRun({first.y(), second.y() - first.y(), first.height(), settings_.rowNumber},
                                    bounds_.top(), bounds_.bottom());
        const Run columns = visibleRun({first.x(), second.x() - first.x(), first.width(), settings_.columeNumber},
                                       bounds_.left(), bounds_.right());
        for (std::int64_t row = rows.first; row <= rows.last; row += rows.step) {
            for (std::int64_t column = columns.first; column <= columns.last; column += columns.step) {
                QRectF tile = tileRect(row, column);
                if (rows.step > 1 || columns.step > 1) {
                    tile |= tileRect(row + rows.step - 1, column + columns.step - 1);
                }
                paintTile(tile);
            }
        }
    }

private:
    QRectF tileRect(std::int64_t row, std::int64_t column) const
    {
        return layout_.tileRect(static_cast<std::int32_t>(row), static_cast<std::int32_t>(column));
    }

    void paintTile(const QRectF &tile) const
    {
        QRectF rect = scale_.map(tile);
        if (settings_.gridBorderWidth > 0.0) {
            fill(painter_, bounds_, rect, settings_.gridBorderColor);
            rect = scale_.map(layout_.pictureRect(tile));
        }
        fill(painter_, bounds_, rect, tileGrey);
        if (rect.width() > placeholderSide && rect.height() > placeholderSide) {
            const QPointF corner = rect.center() - QPointF(placeholderSide, placeholderSide) * 0.5;
            if (corner.x() > bounds_.left() && corner.y() > bounds_.top() && bounds_.contains(corner)) {
                painter_.drawImage(corner, placeholder_);
            }
        }
    }

    QPainter &painter_;
    const QRectF bounds_;
    const CollageSettings &settings_;
    const CollageLayout &layout_;
    const Scale scale_;
    const QImage &placeholder_;
};

} // namespace

QImage fittedForList(const QImage &image)
{
    const QSize room = listPreviewSize * image.devicePixelRatio();
    const bool isSmall = image.width() <= room.width() && image.height() <= room.height();
    return isSmall ? image : image.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

CollageLayout collageLayout(const CollageSettings &settings, const QString &metadataText)
{
    const CollageLayout grid(settings);
    return grid.withText(TextBlock(metadataText, TextBlock::systemFont(), grid.textBox()).size());
}

QImage previewPlaceholder(qreal devicePixelRatio)
{
    return svgImage(u":/images/image_photo.svg"_s, {placeholderSide, placeholderSide}, devicePixelRatio);
}

void drawCollagePreview(QPainter &painter, const QRectF &bounds, const CollageSettings &settings,
                        const QString &metadataText, const QImage &placeholder)
{
    const CollageLayout layout = collageLayout(settings, metadataText);
    Scale scale;
    const QSizeF size = GlobalFun::getSizeWithOrigin(layout.canvasSize(), bounds.size(), &scale.rate);
    qCDebug(lcTessarine).noquote() << "rate :" << GlobalFun::fixedText(scale.rate, 2);
    scale.origin = bounds.topLeft() + QPointF(bounds.width() - size.width(), bounds.height() - size.height()) * 0.5;
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    fill(painter, bounds, {scale.origin, size}, settings.backgroundColor);
    TilePainter(painter, bounds, settings, layout, scale, placeholder).paint();
    painter.restore();
}

QImage renderCollagePreview(QSize size, qreal devicePixelRatio, const CollageSettings &settings,
                            const QString &metadataText, const QImage &placeholder)
{
    QImage image(size * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawCollagePreview(painter, QRectF(QPointF(), QSizeF(size)), settings, metadataText, placeholder);
    return image;
}
