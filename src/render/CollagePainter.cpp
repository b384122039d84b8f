#include "render/CollagePainter.h"

#include "Shared/NumberText.h"
#include "Shared/TimeFormat.h"
#include "platform/Log.h"
#include "render/CollageCanvas.h"
#include "render/MetadataText.h"

#include <limits>

namespace {

constexpr QSizeF unlimited{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
constexpr int opaque = 255;

} // namespace

CollagePainter::CollagePainter(const CollageSettings &collage, const CollageTextStyles &textStyles,
                               const CollageTextItems &textItems, const QString &metadata) :
    settings(collage),
    styles(textStyles),
    items(textItems),
    text(metadata, styles.metadata.font, CollageLayout(settings).textBox()),
    place(CollageLayout(settings).withText(text.size()))
{
}

QImage CollagePainter::makeCanvas() const
{
    if (!place.isPossible()) {
        return {};
    }
    const bool isOpaque = settings.backgroundColor.alpha() == opaque;
    return QImage(place.pixelSize(), isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

bool CollagePainter::paint(QPaintDevice &device, const TileSource &pictureOf, const CancelFlag &cancelled) const
{
    CollageCanvas canvas(device);
    canvas.clear(settings.backgroundColor);
    canvas.drawText(place.textRect().topLeft(), text, styles.metadata.color);
    for (std::int32_t row = 0; row < settings.rowNumber; ++row) {
        for (std::int32_t column = 0; column < settings.columeNumber; ++column) {
            if (cancelled) {
                return false;
            }
            paintTile(canvas, pictureOf, row, column);
        }
    }
    return !cancelled;
}

void CollagePainter::paintTile(CollageCanvas &canvas, const TileSource &pictureOf, std::int32_t row,
                               std::int32_t column) const
{
    const std::int64_t number = column + std::int64_t{settings.columeNumber} * row;
    const double seconds = place.tileTime(number);
    qCDebug(lcTessarine).noquote() << "-----" << number + 1 << ":" << GlobalFun::fixedText(seconds, 2);
    const QImage image = pictureOf(number, seconds);

    // A shadow is never taken back: what one tile sets stays on for the frames and pictures that follow.
    if (settings.gridShadowed) {
        canvas.setShadow({QColor(128, 128, 128)});
    }
    const QRectF tile = place.tileRect(row, column);
    if (settings.gridBorderWidth > 0.0) {
        canvas.fillRect(tile, settings.gridBorderColor);
    }
    const QRectF picture = place.pictureRect(tile);
    canvas.drawImage(picture, image);
    if (holds(items.metadataBits, MetadataItem::TimeStamp)) {
        paintStamp(canvas, picture, seconds);
    }
}

void CollagePainter::paintStamp(CollageCanvas &canvas, const QRectF &picture, double seconds) const
{
    const TextBlock stamp(GlobalFun::getTimeStringBySecond(seconds), styles.timeStamp.font, unlimited);
    canvas.setShadow({Qt::white});
    canvas.drawText(CollageLayout::stampPoint(picture, items.stampPosition), stamp, styles.timeStamp.color);
}
