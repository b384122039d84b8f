#include "collage/editor/SliderScale.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double farAway = 1e6; // points; beyond any screen, and no trouble to a painter

} // namespace

double SliderScale::valueAt(double x) const
{
    if (!(width > 0.0)) {
        return minimum;
    }
    const double value = (std::clamp(x, left, left + width) - left) / width * length + minimum;
    return std::isfinite(value) ? value : minimum;
}

double SliderScale::xOf(double value) const
{
    return std::clamp(unboundedXOf(value), left, left + std::max(width, 0.0));
}

double SliderScale::unboundedXOf(double value) const
{
    if (!(width > 0.0) || !(length > 0.0)) {
        return left;
    }
    const double x = (value - minimum) / length * width + left;
    return std::isnan(x) ? left : std::clamp(x, -farAway, farAway);
}
