#include "platform/widgets/FractionSlider.h"

#include <QMouseEvent>
#include <QSignalBlocker>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int parts = 10;

int toParts(double value)
{
    constexpr double most = std::numeric_limits<int>::max();
    return std::isnan(value) ? 0 : static_cast<int>(std::clamp(std::round(value * parts), 0.0, most));
}

} // namespace

FractionSlider::FractionSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent)
{
    setRange(0, usually_);
    setSingleStep(parts);
    setPageStep(10 * parts);
}

double FractionSlider::doubleValue() const
{
    return static_cast<double>(value()) / parts;
}

void FractionSlider::setDoubleValue(double value)
{
    const QSignalBlocker quiet(this);
    const int wanted = toParts(value);
    setMaximum(std::max(usually_, wanted));
    setValue(wanted);
}

double FractionSlider::usualMaximum() const
{
    return static_cast<double>(usually_) / parts;
}

void FractionSlider::setUsualMaximum(double maximum)
{
    usually_ = std::max(parts, toParts(maximum));
    setMaximum(usually_);
}

void FractionSlider::release()
{
    QMouseEvent event(QEvent::MouseButtonRelease, {}, mapToGlobal(QPointF()), Qt::LeftButton, {}, {});
    mouseReleaseEvent(&event);
}
