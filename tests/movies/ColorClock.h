#pragma once

#include <QColor>

#include <algorithm>
#include <array>

/// The clock movies that make-movies makes: each second is one flat colour, so that a picture tells its time.
namespace ColorClock {

inline constexpr std::array<QRgb, 12> colors = {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffff00, 0xffff00ff, 0xff00ffff,
                                                0xffffffff, 0xff800000, 0xff008000, 0xff000080, 0xff808000, 0xff808080};

/// The second whose colour is nearest to the pixel, which has been through lossy coders.
inline int secondOfColor(const QColor &pixel)
{
    const auto distance = [&pixel](QRgb color) {
        return qAbs(qRed(color) - pixel.red()) + qAbs(qGreen(color) - pixel.green()) +
               qAbs(qBlue(color) - pixel.blue());
    };
    return static_cast<int>(std::ranges::min_element(colors, {}, distance) - colors.begin());
}

} // namespace ColorClock
