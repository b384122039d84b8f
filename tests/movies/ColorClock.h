#pragma once

#include <QColor>

#include <array>

/// The clock movies that make-movies makes: each second is one flat colour, so that a picture tells its time.
namespace ColorClock {

inline constexpr std::array<QRgb, 12> colors = {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffff00, 0xffff00ff, 0xff00ffff,
                                                0xffffffff, 0xff800000, 0xff008000, 0xff000080, 0xff808000, 0xff808080};

/// The picture from `second` up to the next one, 0 to 11; black outside.
inline QColor colorAtSecond(int second)
{
    const auto index = static_cast<std::size_t>(second);
    return index < colors.size() ? QColor(colors[index]) : QColor(Qt::black);
}

/// The second whose colour is nearest to the pixel, which has been through lossy coders.
inline int secondOfColor(const QColor &pixel)
{
    int best = 0;
    int bestDistance = 3 * 255;
    for (int second = 0; second < static_cast<int>(colors.size()); ++second) {
        const QColor color = colorAtSecond(second);
        const int distance =
            qAbs(color.red() - pixel.red()) + qAbs(color.green() - pixel.green()) + qAbs(color.blue() - pixel.blue());
        if (distance < bestDistance) {
            best = second;
            bestDistance = distance;
        }
    }
    return best;
}

} // namespace ColorClock
