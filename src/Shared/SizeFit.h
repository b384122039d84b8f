#pragma once

#include <QSizeF>

/// Fits a size into another, keeping its shape. Safe on any thread.
namespace GlobalFun {

/// The size, made smaller if it exceeds the maximum on a side; never enlarged. A maximum that is NaN sets no limit.
QSizeF getSizeWithOrigin(const QSizeF &size, const QSizeF &max);

/// The same; `rate` gets the divisor when the size is made smaller, and is left alone otherwise. It may be null.
QSizeF getSizeWithOrigin(const QSizeF &size, const QSizeF &max, double *rate);

} // namespace GlobalFun
