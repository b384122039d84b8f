#pragma once

#include "collage/CollageSettings.h"
#include "render/CollageLayout.h"

#include <QImage>
#include <QRectF>
#include <QSize>
#include <QString>

class QPainter;

/// In points: what the list keeps of a movie's collage, which is more than it shows.
inline constexpr QSize listPreviewSize{352, 224};

/// Such a picture no larger than the list keeps it, which may hold thousands of them.
QImage fittedForList(const QImage &image);

/// Where everything lies on the collage that these settings make, under a block of this text.
CollageLayout collageLayout(const CollageSettings &settings, const QString &metadataText);

/// The picture that stands in each tile of a preview, "image_photo", 16 × 16 points. Safe on any thread.
QImage previewPlaceholder(qreal devicePixelRatio);

/// Draws a reduced picture of the collage that these settings make: the background, and grey tiles in their frames,
/// where the export puts them. It is made to fit into `bounds` and centred there, never enlarged; around it nothing is
/// painted. `metadataText` is not drawn, but keeps its room. Touches no file. Any settings are allowed: what cannot be
/// seen costs no time. Needs a QGuiApplication, may run on any thread.
void drawCollagePreview(QPainter &painter, const QRectF &bounds, const CollageSettings &settings,
                        const QString &metadataText, const QImage &placeholder);

/// The same as an image of this size in points, transparent around the collage.
QImage renderCollagePreview(QSize size, qreal devicePixelRatio, const CollageSettings &settings,
                            const QString &metadataText, const QImage &placeholder);
