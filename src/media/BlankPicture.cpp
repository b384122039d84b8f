#include "media/BlankPicture.h"

#include <cmath>

namespace {

constexpr double leastDeviation = 4.0; // of a luma from 0 to 255

}

bool isBlank(const QImage &picture)
{
    if (picture.isNull()) {
        return false;
    }
    const QImage luma = picture.scaled(judgedSize, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                            .convertToFormat(QImage::Format_Grayscale8);
    double sum = 0.0;
    double sumOfSquares = 0.0;
    for (int y = 0; y < luma.height(); ++y) {
        const uchar *line = luma.constScanLine(y);
        for (int x = 0; x < luma.width(); ++x) {
            sum += line[x];
            sumOfSquares += line[x] * line[x];
        }
    }
    const double count = static_cast<double>(luma.width()) * luma.height();
    const double mean = sum / count;
    return sumOfSquares / count - mean * mean < leastDeviation * leastDeviation;
}
