#include "Shared/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

QString GlobalFun::fixedText(double value, int decimals)
{
    // Room for the sign, the 309 digits of the largest double, the point and the decimals.
    std::array<char, 1 + 309 + 1 + 100> text = {};
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
    return error == std::errc() ? QString::fromLatin1(text.data(), end - text.data()) : QString();
}

std::int32_t GlobalFun::truncatedToInt32(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= static_cast<double>(Limits::min())) {
        return Limits::min();
    }
    if (value >= static_cast<double>(Limits::max())) {
        return Limits::max();
    }
    return static_cast<std::int32_t>(value);
}

std::int32_t GlobalFun::leadingInt32(QStringView text)
{
    QStringView rest = text.trimmed();
    const bool negative = rest.startsWith(u'-');
    if (negative || rest.startsWith(u'+')) {
        rest = rest.mid(1);
    }
    double value = 0.0;
    for (const QChar character : rest) {
        if (!character.isDigit()) {
            break;
        }
        value = value * 10.0 + character.digitValue();
    }
    return truncatedToInt32(negative ? -value : value);
}
