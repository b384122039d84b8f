#include "media/Upright.h"

#include <QPainter>
#include <QTransform>

extern "C" {
#include <libavutil/display.h>
}

#include <algorithm>
#include <array>
#include <cmath>

Upright Upright::of(std::span<const std::uint8_t> bytes)
{
    std::array<std::int32_t, 9> matrix = {};
    if (bytes.size() < sizeof matrix) {
        return {};
    }
    std::ranges::copy(bytes.first(sizeof matrix), reinterpret_cast<std::uint8_t *>(matrix.data()));
    double degrees = -std::round(av_display_rotation_get(matrix.data()));
    if (!std::isfinite(degrees)) {
        return {};
    }
    degrees -= 360.0 * std::floor(degrees / 360.0 + 0.9 / 360.0);
    const auto isNear = [degrees](double angle) { return std::abs(degrees - angle) < 1.0; };
    if (isNear(90.0)) {
        return {90.0, matrix[3] > 0, false};
    }
    if (isNear(180.0)) {
        return {0.0, matrix[0] < 0, matrix[4] < 0};
    }
    if (isNear(270.0)) {
        return {270.0, matrix[3] < 0, false};
    }
    if (isNear(0.0)) {
        return {0.0, false, matrix[4] < 0};
    }
    return {degrees, false, false};
}

QImage Upright::apply(const QImage &picture) const
{
    if (degrees == 0.0) {
        return mirrorsSides || mirrorsTop ? picture.mirrored(mirrorsSides, mirrorsTop) : picture;
    }
    if (swapsSides()) {
        return picture.transformed(QTransform().rotate(degrees)).mirrored(mirrorsSides, mirrorsTop);
    }
    // An odd angle: the picture keeps its size, and what comes into it is black.
    QImage turned(picture.size(), picture.format());
    turned.fill(Qt::black);
    QPainter painter(&turned);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QPointF centre = QRectF(picture.rect()).center();
    painter.translate(centre);
    painter.rotate(degrees);
    painter.drawImage(-centre, picture);
    return turned;
}
