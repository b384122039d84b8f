#pragma once

#include <QImage>

#include <cstdlib>

/// The mean difference of two pictures in one colour of a pixel; a JPEG loses up to 5 of these, a frame is 5 to 40 from
/// the next one.
inline double difference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size()) {
        return 255.0;
    }
    double sum = 0.0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            sum += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
        }
    }
    return sum / 3.0 / one.width() / one.height();
}
