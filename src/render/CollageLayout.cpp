#include "render/CollageLayout.h"

#include <array>
#include <cmath>

namespace {

constexpr double longestSide = 65'500.0; // what a JPEG can hold
constexpr double mostPixels = 500'000'000.0;

// The room a time stamp takes at the right and lower edges, whatever its measured size.
constexpr double stampWidth = 60.0;
constexpr double stampHeight = 20.0;

double extent(std::int32_t count, double tile, double gap, double margin)
{
    return count * tile + 2.0 * margin + gap * (static_cast<double>(count) - 1.0);
}

/// Whole pixels for a length, forgiving the last bits of a floating-point sum.
double wholePixels(double length)
{
    return std::ceil(length - 1e-6);
}

bool isPossibleSide(double pixels)
{
    return pixels >= 1.0 && pixels <= longestSide; // false for NaN
}

} // namespace

CollageLayout::CollageLayout(const CollageSettings &settings) : settings_(settings) {}

CollageLayout CollageLayout::withText(QSizeF measured) const
{
    CollageLayout layout(settings_);
    layout.text_ = measured;
    return layout;
}

QSizeF CollageLayout::textBox() const
{
    return {extent(settings_.columeNumber, settings_.gridWidth, settings_.columeSpace, settings_.borderWidth),
            extent(settings_.rowNumber, settings_.gridHeight, settings_.rowSpace, settings_.borderWidth)};
}

QSizeF CollageLayout::canvasSize() const
{
    return textBox() + QSizeF(0.0, text_.height());
}

QSize CollageLayout::pixelSize() const
{
    if (!isPossible()) {
        return {};
    }
    const QSizeF size = canvasSize();
    return {static_cast<int>(wholePixels(size.width())), static_cast<int>(wholePixels(size.height()))};
}

bool CollageLayout::isPossible() const
{
    const QSizeF size = canvasSize();
    const double width = wholePixels(size.width());
    const double height = wholePixels(size.height());
    return isPossibleSide(width) && isPossibleSide(height) && width * height <= mostPixels;
}

QRectF CollageLayout::textRect() const
{
    return {QPointF(settings_.borderWidth, settings_.borderWidth), text_};
}

QRectF CollageLayout::tileRect(std::int32_t row, std::int32_t column) const
{
    return {settings_.borderWidth + column * (settings_.gridWidth + settings_.columeSpace),
            text_.height() + settings_.borderWidth + row * (settings_.gridHeight + settings_.rowSpace),
            settings_.gridWidth, settings_.gridHeight};
}

QRectF CollageLayout::pictureRect(const QRectF &tile) const
{
    const double frame = settings_.gridBorderWidth;
    return tile.adjusted(frame, frame, -frame, -frame);
}

QPointF CollageLayout::stampPoint(const QRectF &picture, std::int64_t position)
{
    const double right = picture.x() + picture.width() - stampWidth;
    const double low = picture.y() + picture.height() - stampHeight;
    const std::array<QPointF, 4> corners{QPointF(right, low), QPointF(picture.x(), low), QPointF(right, picture.y()),
                                         picture.topLeft()};
    return position >= 0 && position < std::ssize(corners) ? corners[static_cast<std::size_t>(position)] : QPointF();
}

std::int64_t CollageLayout::tileCount() const
{
    if (settings_.rowNumber <= 0 || settings_.columeNumber <= 0) {
        return 0;
    }
    return std::int64_t{settings_.rowNumber} * settings_.columeNumber;
}

double CollageLayout::tileStep() const
{
    const std::int64_t count = tileCount();
    const double divisor = count >= 2 ? static_cast<double>(count - 1) : 2.0;
    return (settings_.endPoint - settings_.startPoint) / divisor;
}

double CollageLayout::tileTime(std::int64_t tile) const
{
    return settings_.startPoint + static_cast<double>(tile) * tileStep();
}

double CollageLayout::tileShare() const
{
    return std::abs(tileStep());
}
