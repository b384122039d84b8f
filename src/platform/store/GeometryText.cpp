#include "platform/store/GeometryText.h"

#include <QRegularExpression>

#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace GeometryText {
namespace {

constexpr double farthest = 1e6;

/// The numbers in a text that has this form to the last character; none in any other, or when one is out of range.
std::vector<int> numbersIn(QStringView text, const QRegularExpression &form)
{
    std::vector<int> numbers;
    for (const QString &captured : form.match(text.toString()).capturedTexts().mid(1)) {
        const double number = captured.toDouble();
        if (std::abs(number) > farthest) {
            return {};
        }
        numbers.push_back(static_cast<int>(number));
    }
    return numbers;
}

QRegularExpression formOf(QString pattern)
{
    pattern.replace(u'#', u"(-?\\d{1,9}(?:\\.\\d+)?)"_s).replace(u' ', u"\\s*"_s);
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern));
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

std::optional<QPoint> toPoint(QStringView text)
{
    const std::vector<int> numbers = numbersIn(text, formOf(u" \\{ # , # \\} "_s));
    return numbers.empty() ? std::nullopt : std::optional(QPoint(numbers[0], numbers[1]));
}

std::optional<QRect> toRect(QStringView text)
{
    const std::vector<int> numbers = numbersIn(text, formOf(u" \\{ \\{ # , # \\} , \\{ # , # \\} \\} "_s));
    return numbers.empty() ? std::nullopt : std::optional(QRect(numbers[0], numbers[1], numbers[2], numbers[3]));
}

} // namespace GeometryText
