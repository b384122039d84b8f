#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>

/// Points and rectangles as text for the store: "{x, y}" and "{{x, y}, {width, height}}".
namespace GeometryText {

QString fromPoint(QPoint point);
QString fromRect(const QRect &rect);

/// Fractions are cut off. Nothing for any other text, and for numbers that no screen reaches (over a million).
std::optional<QPoint> toPoint(QStringView text);
std::optional<QRect> toRect(QStringView text);

} // namespace GeometryText
