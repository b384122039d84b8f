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

CollagePainter::CollagePainter(const CollageSettings &settings, const CollageTextStyles &styles,
                               const CollageTextItems &items, const QString &metadata) :
    settings_(settings),
    styles_(styles),
    items_(items),
    text_(metadata, styles_.metadata.font, CollageLayout(settings_).textBox()),
    place_(CollageLayout(settings_).withText(text_.size()))
{
}

QImage CollagePainter::makeCanvas() const
{
    if (!place_.isPossible()) {
        return {};
    }
    const bool isOpaque = settings_.backgroundColor.alpha() == opaque;
    return QImage(place_.pixelSize(), isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

bool CollagePainter::paint(QPaintDevice &device, const TileSource &pictureOf, const CancelFlag &cancelled) const
{
    CollageCanvas canvas(device);
    canvas.clear(settings_.backgroundColor);
    canvas.drawText(place_.textRect().topLeft(), text_, styles_.metadata.color);
    for (std::int32_t row = 0; row < settings_.rowNumber; ++row) {
        for (std::int32_t column = 0; column < settings_.columeNumber; ++column) {
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
    const std::int64_t number = column + std::int64_t{settings_.columeNumber} * row;
    const double seconds = place_.tileTime(number);
    qCDebug(lcTessarine).noquote() << "-----" << number + 1 << ":" << GlobalFun::fixedText(seconds, 2);
    const TilePicture shown = pictureOf(number, seconds);

    // A shadow is never taken back: what one tile sets stays on for the frames and pictures that follow.
    if (settings_.gridShadowed) {
        canvas.setShadow({QColor(128, 128, 128)});
    }
    const QRectF tile = place_.tileRect(row, column);
    if (settings_.gridBorderWidth > 0.0) {
        canvas.fillRect(tile, settings_.gridBorderColor);
    }
    const QRectF picture = place_.pictureRect(tile);
    canvas.drawImage(picture, shown.image);
    if (holds(items_.metadataBits, MetadataItem::TimeStamp)) {
        paintStamp(canvas, picture, shown.seconds.value_or(seconds));
    }
}

void CollagePainter::paintStamp(CollageCanvas &canvas, const QRectF &picture, double seconds) const
{
    const TextBlock stamp(GlobalFun::getTimeStringBySecond(seconds), styles_.timeStamp.font, unlimited);
    canvas.setShadow({Qt::white});
    canvas.drawText(CollageLayout::stampPoint(picture, items_.stampPosition), stamp, styles_.timeStamp.color);
}
