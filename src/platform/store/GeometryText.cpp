#include "platform/store/GeometryText.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace GeometryText {
namespace {

/// Matches a text of this form, in which "#" stands for a number: up to six digits, which no screen exceeds.
QRegularExpressionMatch match(const QString &text, QString form)
{
    return QRegularExpression(u"^\\s*"_s + form.replace(u'#', u"(-?\\d{1,6})"_s) + u"\\s*$"_s).match(text);
}

} // namespace

QString fromPoint(QPoint point)
{
    return u"{%1, %2}"_s.arg(point.x()).arg(point.y());
}

QString fromRect(const QRect &rect)
{
    return u"{{%1, %2}, {%3, %4}}"_s.arg(rect.x()).arg(rect.y()).arg(rect.width()).arg(rect.height());
}

std::optional<QPoint> toPoint(const QString &text)
{
    const auto found = match(text, u"\\{#,\\s*#\\}"_s);
    return found.hasMatch() ? std::optional(QPoint(found.captured(1).toInt(), found.captured(2).toInt()))
                            : std::nullopt;
}

std::optional<QRect> toRect(const QString &text)
{
    const auto found = match(text, u"\\{\\{#,\\s*#\\},\\s*\\{#,\\s*#\\}\\}"_s);
    return found.hasMatch() ? std::optional(QRect(found.captured(1).toInt(), found.captured(2).toInt(),
                                                  found.captured(3).toInt(), found.captured(4).toInt()))
                            : std::nullopt;
}

} // namespace GeometryText
