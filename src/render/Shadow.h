#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

/// A soft shadow that falls one pixel to the right and one down.
struct Shadow {
    QColor color;

    bool operator==(const Shadow &) const = default;
};

/// How shadows are cast. Pure functions on pixels.
namespace ShadowCasting {

/// How far a shadow reaches beyond the object's own outline before it is offset.
inline constexpr int reach = 3;

/// Where the shadow of an object in `object` can fall.
QRect shadowBounds(const QRect &object);

/// The pixels within `part` of the shadow of a filled rectangle; `opacity` is that of the fill, 0 to 1.
QImage ofRect(const QRect &object, double opacity, const Shadow &shadow, const QRect &part);

/// The shadow of any drawing: an image of shadowBounds({0, 0, size}) for a drawing given as an image with alpha.
QImage ofDrawing(const QImage &drawing, const Shadow &shadow);

} // namespace ShadowCasting
