#include "render/CollageCanvas.h"

#include "render/AllocatedImage.h"
#include "render/TextBlock.h"

#include <QRegion>

namespace {

/// Both edges rounded by themselves: neighbours that touch keep touching.
QRect snapped(const QRectF &rect)
{
    return {rect.topLeft().toPoint(), rect.bottomRight().toPoint() - QPoint(1, 1)};
}

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
    painter(&device),
    reachable(QRectF(0, 0, device.width(), device.height()).adjusted(-margin, -margin, margin, margin))
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

void CollageCanvas::setShadow(const Shadow &shadow)
{
    current = shadow;
}

void CollageCanvas::clear(const QColor &color)
{
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(reachable, color);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void CollageCanvas::castShadow(const QRect &object, double opacity)
{
    if (!current) {
        return;
    }
    QRegion visible(ShadowCasting::shadowBounds(object));
    if (opacity >= 1.0) {
        visible -= object; // what the object itself will cover
    }
    for (const QRect &part : visible) {
        painter.drawImage(part.topLeft(), ShadowCasting::ofRect(object, opacity, *current, part));
    }
}

void CollageCanvas::fillRect(const QRectF &rect, const QColor &color)
{
    const QRect pixels = snapped(rect & reachable);
    if (pixels.isEmpty()) {
        return;
    }
    castShadow(pixels, color.alphaF());
    painter.fillRect(pixels, color);
}

void CollageCanvas::drawImage(const QRectF &rect, const QImage &image)
{
    const QRect pixels = snapped(rect & reachable);
    if (pixels.isEmpty() || image.isNull()) {
        return;
    }
    castShadow(pixels, 1.0);
    if (reachable.contains(rect)) {
        painter.drawImage(pixels.topLeft(),
                          allocated(image.scaled(pixels.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)));
    } else {
        painter.drawImage(QRectF(pixels), image, stretchedFrom(image.rect(), rect, pixels));
    }
}

void CollageCanvas::drawText(QPointF topLeft, const TextBlock &text, const QColor &color)
{
    const QSize size = text.size().toSize();
    if (size.isEmpty() || !reachable.intersects({topLeft, text.size()})) {
        return;
    }
    const QPoint corner = topLeft.toPoint();
    if (current) {
        QImage drawing = allocated(QImage(size, QImage::Format_ARGB32_Premultiplied));
        drawing.fill(Qt::transparent);
        QPainter drawingPainter(&drawing);
        drawingPainter.setPen(color);
        text.draw(drawingPainter, {});
        drawingPainter.end();
        painter.drawImage(ShadowCasting::shadowBounds({corner, size}).topLeft(),
                          ShadowCasting::ofDrawing(drawing, *current));
    }
    painter.setPen(color);
    text.draw(painter, corner);
}
