#include "collage/editor/SliderPiece.h"

#include "platform/desktop/SvgImage.h"

#include <QPainter>

#include <cmath>

namespace {

/// The rectangle with each edge on the nearest device pixel, so that neighbours keep touching.
QRectF onDevicePixels(const QRectF &rect, qreal ratio)
{
    const auto snapped = [ratio](qreal edge) { return std::round(edge * ratio) / ratio; };
    return {QPointF(snapped(rect.left()), snapped(rect.top())), QPointF(snapped(rect.right()), snapped(rect.bottom()))};
}

} // namespace

SliderPiece::SliderPiece(const QString &name) : resource(u":/images/" + name + u".svg"), naturalSize(svgSize(resource))
{
}

void SliderPiece::draw(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QRectF target = onDevicePixels(rect, ratio);
    if (target.isEmpty() || naturalSize.isEmpty()) {
        return;
    }
    const QSizeF size = target.size().boundedTo(naturalSize * 2.0); // what is longer is even, and is stretched
    if (size != tintedSize || ratio != tinted.devicePixelRatio() || color.rgba() != tint) {
        tinted = svgImage(resource, size, ratio);
        tintedSize = size;
        tint = color.rgba();
        QPainter tinting(&tinted);
        tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
        tinting.fillRect(QRectF({}, size), color);
    }
    painter.drawImage(target, tinted);
}
