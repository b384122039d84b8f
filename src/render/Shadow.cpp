#include "render/Shadow.h"

#include "render/AllocatedImage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

constexpr QPoint offset{1, 1};
constexpr int taps = 2 * ShadowCasting::reach + 1;

/// A blur radius of 2 is a Gaussian of standard deviation 1; beyond three deviations nothing can be seen.
const std::array<double, taps> &kernel()
{
    static const std::array<double, taps> weights = [] {
        std::array<double, taps> values{};
        double sum = 0.0;
        for (int tap = 0; tap < taps; ++tap) {
            const double distance = tap - ShadowCasting::reach;
            values[static_cast<std::size_t>(tap)] = std::exp(-0.5 * distance * distance);
            sum += values[static_cast<std::size_t>(tap)];
        }
        std::ranges::for_each(values, [sum](double &value) { value /= sum; });
        return values;
    }();
    return weights;
}

/// How much of a blurred bar from 0 to `length` is seen at `position`, 0 to 1.
double blurredBar(int length, int position)
{
    double sum = 0.0;
    for (int tap = 0; tap < taps; ++tap) {
        const int source = position + tap - ShadowCasting::reach;
        if (source >= 0 && source < length) {
            sum += kernel()[static_cast<std::size_t>(tap)];
        }
    }
    return sum;
}

std::vector<double> blurredBar(int length, int first, int count)
{
    std::vector<double> values(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        values[static_cast<std::size_t>(index)] = blurredBar(length, first + index);
    }
    return values;
}

QRgb shade(const QColor &color, double coverage)
{
    const double alpha = color.alphaF() * std::clamp(coverage, 0.0, 1.0);
    return qPremultiply(qRgba(color.red(), color.green(), color.blue(), static_cast<int>(std::lround(255.0 * alpha))));
}

QImage transparentImage(QSize size)
{
    QImage image = allocated(QImage(size, QImage::Format_ARGB32_Premultiplied));
    image.fill(Qt::transparent);
    return image;
}

QRgb *rowOf(QImage &image, int y)
{
    return reinterpret_cast<QRgb *>(image.scanLine(y));
}

/// A grid of coverage values, 0 to 1, that reads 0 outside itself.
class Coverage {
public:
    explicit Coverage(QSize size) :
        size_(size), values_(static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()))
    {
    }

    double at(int x, int y) const
    {
        return x >= 0 && y >= 0 && x < size_.width() && y < size_.height() ? values_[index(x, y)] : 0.0;
    }
    double &operator()(int x, int y) { return values_[index(x, y)]; }

    /// Blurred along the direction (1, 0) or (0, 1).
    Coverage blurred(QPoint direction) const
    {
        Coverage result(size_);
        for (int y = 0; y < size_.height(); ++y) {
            for (int x = 0; x < size_.width(); ++x) {
                for (int tap = 0; tap < taps; ++tap) {
                    const QPoint source = QPoint(x, y) + direction * (tap - ShadowCasting::reach);
                    result(x, y) += kernel()[static_cast<std::size_t>(tap)] * at(source.x(), source.y());
                }
            }
        }
        return result;
    }

private:
    std::size_t index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(size_.width()) + static_cast<std::size_t>(x);
    }

    QSize size_;
    std::vector<double> values_;
};

} // namespace

QRect ShadowCasting::shadowBounds(const QRect &object)
{
    return object.adjusted(-reach, -reach, reach, reach).translated(offset);
}

QImage ShadowCasting::ofRect(const QRect &object, double opacity, const Shadow &shadow, const QRect &part)
{
    const QPoint first = part.topLeft() - object.topLeft() - offset;
    const std::vector<double> across = blurredBar(object.width(), first.x(), part.width());
    const std::vector<double> down = blurredBar(object.height(), first.y(), part.height());
    QImage image = transparentImage(part.size());
    for (int y = 0; y < part.height(); ++y) {
        std::ranges::transform(across, rowOf(image, y),
                               [&, rowCoverage = down[static_cast<std::size_t>(y)] * opacity](double value) {
                                   return shade(shadow.color, value * rowCoverage);
                               });
    }
    return image;
}

QImage ShadowCasting::ofDrawing(const QImage &drawing, const Shadow &shadow)
{
    QImage image = transparentImage(shadowBounds(drawing.rect()).size());
    Coverage coverage(image.size());
    for (int y = 0; y < drawing.height(); ++y) {
        for (int x = 0; x < drawing.width(); ++x) {
            coverage(x + reach, y + reach) = qAlpha(drawing.pixel(x, y)) / 255.0;
        }
    }
    const Coverage soft = coverage.blurred({1, 0}).blurred({0, 1});
    for (int y = 0; y < image.height(); ++y) {
        QRgb *row = rowOf(image, y);
        for (int x = 0; x < image.width(); ++x) {
            row[x] = shade(shadow.color, soft.at(x, y));
        }
    }
    return image;
}
