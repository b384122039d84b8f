#pragma once

#include <QImage>
#include <QRectF>
#include <QRgb>
#include <QSizeF>
#include <QString>

class QPainter;

/// One of the drawings that a slider is made of, in any colour; keeps the last one painted. Owned by its slider; main
/// thread.
class SliderPiece {
public:
    /// The SVG image resource of this name ("SliderKnob" is ":/images/SliderKnob.svg"), whose own colours do not count,
    /// only its opacity.
    explicit SliderPiece(const QString &name);

    /// Of the drawing, in points.
    QSizeF size() const { return naturalSize_; }
    /// Fills the rectangle, sharp at the painter's resolution.
    void draw(QPainter &painter, const QRectF &rect, const QColor &color);

private:
    QString resource_;
    QSizeF naturalSize_;
    QImage tinted_;
    QSizeF tintedSize_;
    QRgb tint_ = 0;
};
