#pragma once

#include <QString>

#include <cstdint>

/// Numbers to text and to whole numbers, the same in every locale. Safe on any thread.
namespace GlobalFun {

/// The value with this many decimals (0 to 100), correctly rounded, with a point whatever the locale:
/// "12.35", "-0", "inf", "nan".
QString fixedText(double value, int decimals);

/// The value cut towards zero; what is out of range becomes the nearest end of it, what is no number 0.
std::int32_t truncatedToInt32(double value);

/// The whole number that the text begins with, after spaces: "12.9" is 12, "-3px" is -3, "abc" is 0. Digits of any
/// script count; what is out of range becomes the nearest end of it.
std::int32_t leadingInt32(QStringView text);

} // namespace GlobalFun
