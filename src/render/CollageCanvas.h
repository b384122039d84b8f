#pragma once

#include "render/Shadow.h"

#include <QPainter>

#include <optional>

class TextBlock;

/// Paints rectangles, pictures and texts on a paint device, each with the shadow that is current.
/// A shadow stays current until another replaces it; at first there is none. Rectangles are snapped to whole pixels,
/// so that every edge is sharp.
class CollageCanvas {
public:
    /// The device must outlive the canvas.
    explicit CollageCanvas(QPaintDevice &device);

    void setShadow(const Shadow &shadow);

    /// Replaces everything by the colour, which may be transparent.
    void clear(const QColor &color);

    void fillRect(const QRectF &rect, const QColor &color);
    /// Stretches the whole image into the rectangle. Nothing is drawn when either is empty.
    void drawImage(const QRectF &rect, const QImage &image);
    void drawText(QPointF topLeft, const TextBlock &text, const QColor &color);

    /// The pixels that a rectangle is drawn on: each edge is rounded for itself, so that neighbours that touch keep
    /// touching.
    static QRect pixelsOf(const QRectF &rect);

private:
    void castShadow(const QRect &object, double opacity);

    static constexpr double margin = 2.0 * ShadowCasting::reach;

    QPainter painter_;
    QRectF reachable_; // the device and what can cast a shadow into it; what lies outside is never computed
    std::optional<Shadow> current_;
};
