#include "render/CollageCanvas.h"

#include "render/AllocatedImage.h"
#include "render/TextBlock.h"

#include <QRegion>

namespace {

/// The part of `source` that lands in `part` when the whole of it is stretched into `whole`.
QRectF stretchedFrom(const QRectF &source, const QRectF &whole, const QRectF &part)
{
    const double across = source.width() / whole.width();
    const double down = source.height() / whole.height();
    return {(part.x() - whole.x()) * across, (part.y() - whole.y()) * down, part.width() * across,
            part.height() * down};
}

} // namespace

CollageCanvas::CollageCanvas(QPaintDevice &device) :
    painter_(&device),
    reachable_(QRectF(0, 0, device.width(), device.height()).adjusted(-margin, -margin, margin, margin))
{
    painter_.setRenderHint(QPainter::SmoothPixmapTransform);
}

QRect CollageCanvas::pixelsOf(const QRectF &rect)
{
    return {rect.topLeft().toPoint(), rect.bottomRight().toPoint() - QPoint(1, 1)};
}

void CollageCanvas::setShadow(const Shadow &shadow)
{
    current_ = shadow;
}

void CollageCanvas::clear(const QColor &color)
{
    painter_.setCompositionMode(QPainter::CompositionMode_Source);
    painter_.fillRect(reachable_, color);
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void CollageCanvas::castShadow(const QRect &object, double opacity)
{
    if (!current_) {
        return;
    }
    QRegion visible(ShadowCasting::shadowBounds(object));
    if (opacity >= 1.0) {
        visible -= object; // what the object itself will cover
    }
    for (const QRect &part : visible) {
        painter_.drawImage(part.topLeft(), ShadowCasting::ofRect(object, opacity, *current_, part));
    }
}

void CollageCanvas::fillRect(const QRectF &rect, const QColor &color)
{
    const QRect pixels = pixelsOf(rect & reachable_);
    if (pixels.isEmpty()) {
        return;
    }
    castShadow(pixels, color.alphaF());
    painter_.fillRect(pixels, color);
}

void CollageCanvas::drawImage(const QRectF &rect, const QImage &image)
{
    const QRect pixels = pixelsOf(rect & reachable_);
    if (pixels.isEmpty() || image.isNull()) {
        return;
    }
    castShadow(pixels, 1.0);
    if (reachable_.contains(rect)) {
        painter_.drawImage(pixels.topLeft(),
                           allocated(image.scaled(pixels.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
    } else {
        painter_.drawImage(QRectF(pixels), image, stretchedFrom(image.rect(), rect, pixels));
    }
}

void CollageCanvas::drawText(QPointF topLeft, const TextBlock &text, const QColor &color)
{
    const QSize size = text.size().toSize();
    if (size.isEmpty() || !reachable_.intersects({topLeft, text.size()})) {
        return;
    }
    const QPoint corner = topLeft.toPoint();
    if (current_) {
        QImage drawing = allocated(QImage(size, QImage::Format_ARGB32_Premultiplied));
        drawing.fill(Qt::transparent);
        QPainter drawingPainter(&drawing);
        drawingPainter.setPen(color);
        text.draw(drawingPainter, {});
        drawingPainter.end();
        painter_.drawImage(ShadowCasting::shadowBounds({corner, size}).topLeft(),
                           ShadowCasting::ofDrawing(drawing, *current_));
    }
    painter_.setPen(color);
    text.draw(painter_, corner);
}
