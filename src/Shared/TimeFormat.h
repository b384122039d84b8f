#pragma once

#include <QString>

#include <cstdint>

/// Times in seconds to text and back. All of it takes any double and is safe on any thread.
namespace GlobalFun {

/// A time split into its fields; those of a negative time are negative.
struct HourMinuteSecond {
    std::int32_t hours = 0;
    std::int32_t minutes = 0;
    std::int32_t seconds = 0;
};

/// Fractions of a second are dropped; hours are not limited to two digits.
HourMinuteSecond getHour(double time);

/// "hh:mm:ss", as getHour() splits it: 59.9 is "00:00:59", 360000 is "100:00:00".
QString getTimeStringBySecond(double seconds);

/// The seconds of "h:m:s". Parts count from the left ("05:30" is five and a half hours), later ones are ignored, and
/// what does not start with a decimal number is 0.
double getSecondsByTimeString(const QString &text);

/// The time left for human eyes: "45 seconds remaining", "1 minite 0 second remaining", "2 hours 0 minite remaining".
QString getEstimateStrBySecond(double seconds);

} // namespace GlobalFun
