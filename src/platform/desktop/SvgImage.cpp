#include "platform/desktop/SvgImage.h"

#include <QPainter>
#include <QSvgRenderer>

QImage svgImage(const QString &resource, QSizeF size, qreal devicePixelRatio)
{
    QSvgRenderer drawing(resource);
    if (!drawing.isValid()) {
        return {};
    }
    QImage image((size * devicePixelRatio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter, QRectF({}, size));
    return image;
}

QSizeF svgSize(const QString &resource)
{
    const QSvgRenderer drawing(resource);
    return drawing.isValid() ? QSizeF(drawing.defaultSize()) : QSizeF();
}
