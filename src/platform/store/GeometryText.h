#pragma once

#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>

/// Points and rectangles as text for the store: "{x, y}" and "{{x, y}, {width, height}}".
namespace GeometryText {

QString fromPoint(QPoint point);
QString fromRect(const QRect &rect);

/// Nothing for any other text, and for numbers that no screen reaches (over six digits).
std::optional<QPoint> toPoint(const QString &text);
std::optional<QRect> toRect(const QString &text);

} // namespace GeometryText
