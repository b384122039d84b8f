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

SliderPiece::SliderPiece(const QString &name) :
    resource_(u":/images/" + name + u".svg"), naturalSize_(svgSize(resource_))
{
}

void SliderPiece::draw(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const qreal ratio = painter.device()->devicePixelRatioF();
    const QRectF target = onDevicePixels(rect, ratio);
    if (target.isEmpty() || naturalSize_.isEmpty()) {
        return;
    }
    const QSizeF size = target.size().boundedTo(naturalSize_ * 2.0); // what is longer is even, and is stretched
    if (size != tintedSize_ || ratio != tinted_.devicePixelRatio() || color.rgba() != tint_) {
        tinted_ = svgImage(resource_, size, ratio);
        tintedSize_ = size;
        tint_ = color.rgba();
        QPainter tinting(&tinted_);
        tinting.setCompositionMode(QPainter::CompositionMode_SourceIn);
        tinting.fillRect(QRectF({}, size), color);
    }
    painter.drawImage(target, tinted_);
}
