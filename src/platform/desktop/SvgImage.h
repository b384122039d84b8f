#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>

/// The SVG drawing at `resource` (":/images/import.svg") as an image of this size in points, sharp at the pixel ratio;
/// transparent where nothing is drawn. Null when there is no such drawing. Safe on any thread.
QImage svgImage(const QString &resource, QSizeF size, qreal devicePixelRatio);

/// The size in points that the drawing gives itself; empty when there is no such drawing. Safe on any thread.
QSizeF svgSize(const QString &resource);
