#include "Shared/SizeFit.h"

#include <cmath>

QSizeF GlobalFun::getSizeWithOrigin(const QSizeF &size, const QSizeF &max)
{
    return getSizeWithOrigin(size, max, nullptr);
}

QSizeF GlobalFun::getSizeWithOrigin(const QSizeF &size, const QSizeF &max, double *rate)
{
    // fmax ignores a NaN when the other number is none.
    const double divisor = std::fmax(size.width() / max.width(), size.height() / max.height());
    if (!(divisor > 1.0)) {
        return size;
    }
    if (rate) {
        *rate = divisor;
    }
    return {size.width() / divisor, size.height() / divisor};
}
