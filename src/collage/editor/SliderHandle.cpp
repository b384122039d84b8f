#include "collage/editor/SliderHandle.h"

#include "Shared/TimeFormat.h"
#include "collage/editor/BaseSliderView.h"

#include <QAccessibleWidget>
#include <QKeyEvent>

#include <memory>
#include <utility>

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
        return kind == QAccessible::Value ? GlobalFun::getTimeStringBySecond(handle.edge().value())
                                          : QAccessibleWidget::text(kind);
    }
    QRect rect() const override
    {
        const QRect drawn = handle.edge().rect().toAlignedRect();
        return {handle.parentWidget()->mapToGlobal(drawn.topLeft()), drawn.size()};
    }

    QVariant currentValue() const override { return handle.edge().value(); }
    void setCurrentValue(const QVariant &value) override { handle.edge().setValue(value.toDouble()); }
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

SliderHandle::SliderHandle(BaseSliderView &baseSlider, SliderEdge edge) :
    QWidget(&baseSlider), slider(baseSlider), movedEdge(std::move(edge))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::TabFocus);
    QAccessible::installFactory(accessibleHandle); // Qt keeps it once, however often it comes
}

double SliderHandle::minimum() const
{
    return slider.dMinValue();
}

double SliderHandle::maximum() const
{
    return slider.dMinValue() + slider.dLength();
}

void SliderHandle::announce()
{
    QAccessibleValueChangeEvent event(this, movedEdge.value());
    QAccessible::updateAccessibility(&event);
}

void SliderHandle::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return movedEdge.setValue(movedEdge.value() - step);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return movedEdge.setValue(movedEdge.value() + step);
    case Qt::Key_PageDown:
        return movedEdge.setValue(movedEdge.value() - page);
    case Qt::Key_PageUp:
        return movedEdge.setValue(movedEdge.value() + page);
    case Qt::Key_Home:
        return movedEdge.setValue(minimum());
    case Qt::Key_End:
        return movedEdge.setValue(maximum());
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
