#include "collage/editor/SliderHandle.h"

#include "Shared/TimeFormat.h"
#include "collage/editor/SplitSliderView.h"

#include <QAccessibleWidget>
#include <QKeyEvent>

#include <memory>

namespace {

constexpr double step = 1.0; // seconds
constexpr double page = 10.0;

class AccessibleHandle final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleHandle(SliderHandle &sliderHandle) :
        QAccessibleWidget(&sliderHandle, QAccessible::Slider), handle(sliderHandle)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? GlobalFun::getTimeStringBySecond(handle.value())
                                          : QAccessibleWidget::text(kind);
    }
    QRect rect() const override
    {
        const QRect drawn = handle.rectInSlider();
        return {handle.parentWidget()->mapToGlobal(drawn.topLeft()), drawn.size()};
    }

    QVariant currentValue() const override { return handle.value(); }
    void setCurrentValue(const QVariant &value) override { handle.setValue(value.toDouble()); }
    QVariant minimumValue() const override { return handle.minimum(); }
    QVariant maximumValue() const override { return handle.maximum(); }
    QVariant minimumStepSize() const override { return step; }

private:
    SliderHandle &handle;
};

QAccessibleInterface *accessibleHandle(const QString & /*className*/, QObject *object)
{
    auto *handle = qobject_cast<SliderHandle *>(object);
    return handle ? std::make_unique<AccessibleHandle>(*handle).release() : nullptr; // Qt owns it
}

} // namespace

SliderHandle::SliderHandle(SplitSliderView &splitSlider, bool isLeft) :
    QWidget(&splitSlider), slider(splitSlider), bLeftClip(isLeft)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::TabFocus);
    QAccessible::installFactory(accessibleHandle); // Qt keeps it once, however often it comes
}

double SliderHandle::value() const
{
    const SliderSelectionItem &selection = slider.selectionItem();
    return bLeftClip ? selection.dStart : selection.end();
}

void SliderHandle::setValue(double seconds)
{
    slider.moveClip(bLeftClip, seconds);
}

double SliderHandle::minimum() const
{
    return slider.dMinValue();
}

double SliderHandle::maximum() const
{
    return slider.dMinValue() + slider.dLength();
}

QRect SliderHandle::rectInSlider() const
{
    return slider.clipRect(bLeftClip).toAlignedRect();
}

void SliderHandle::announce()
{
    QAccessibleValueChangeEvent event(this, value());
    QAccessible::updateAccessibility(&event);
}

void SliderHandle::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return setValue(value() - step);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return setValue(value() + step);
    case Qt::Key_PageDown:
        return setValue(value() - page);
    case Qt::Key_PageUp:
        return setValue(value() + page);
    case Qt::Key_Home:
        return setValue(minimum());
    case Qt::Key_End:
        return setValue(maximum());
    default:
        return QWidget::keyPressEvent(event);
    }
}

void SliderHandle::focusInEvent(QFocusEvent * /*event*/)
{
    slider.update();
}

void SliderHandle::focusOutEvent(QFocusEvent * /*event*/)
{
    slider.update();
}
