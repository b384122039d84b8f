#include "collage/editor/SliderHandle.h"

#include "Shared/TimeFormat.h"
#include "collage/editor/BaseSliderView.h"
#include "platform/MakeForQt.h"

#include <QAccessibleWidget>
#include <QKeyEvent>

#include <utility>

namespace {

constexpr double step = 1.0; // seconds
constexpr double page = 10.0;

class AccessibleHandle final : public QAccessibleWidget, public QAccessibleValueInterface {
public:
    explicit AccessibleHandle(SliderHandle &handle) : QAccessibleWidget(&handle, QAccessible::Slider), handle_(handle)
    {
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ValueInterface ? static_cast<QAccessibleValueInterface *>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? GlobalFun::getTimeStringBySecond(handle_.edge().value())
                                          : QAccessibleWidget::text(kind);
    }
    QRect rect() const override
    {
        const QRect drawn = handle_.edge().rect().toAlignedRect();
        return {handle_.parentWidget()->mapToGlobal(drawn.topLeft()), drawn.size()};
    }

    QVariant currentValue() const override { return handle_.edge().value(); }
    void setCurrentValue(const QVariant &value) override { handle_.edge().setValue(value.toDouble()); }
    QVariant minimumValue() const override { return handle_.minimum(); }
    QVariant maximumValue() const override { return handle_.maximum(); }
    QVariant minimumStepSize() const override { return step; }

private:
    SliderHandle &handle_;
};

QAccessibleInterface *accessibleHandle(const QString & /*className*/, QObject *object)
{
    auto *handle = qobject_cast<SliderHandle *>(object);
    return handle ? makeForQt<AccessibleHandle>(*handle) : nullptr;
}

} // namespace

SliderHandle::SliderHandle(BaseSliderView &slider, SliderEdge movedEdge) :
    QWidget(&slider), slider_(slider), movedEdge_(std::move(movedEdge))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::TabFocus);
    QAccessible::installFactory(accessibleHandle); // Qt keeps it once, however often it comes
}

double SliderHandle::minimum() const
{
    return slider_.dMinValue();
}

double SliderHandle::maximum() const
{
    return slider_.dMinValue() + slider_.dLength();
}

void SliderHandle::announce()
{
    QAccessibleValueChangeEvent event(this, movedEdge_.value());
    QAccessible::updateAccessibility(&event);
}

void SliderHandle::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return movedEdge_.setValue(movedEdge_.value() - step);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return movedEdge_.setValue(movedEdge_.value() + step);
    case Qt::Key_PageDown:
        return movedEdge_.setValue(movedEdge_.value() - page);
    case Qt::Key_PageUp:
        return movedEdge_.setValue(movedEdge_.value() + page);
    case Qt::Key_Home:
        return movedEdge_.setValue(minimum());
    case Qt::Key_End:
        return movedEdge_.setValue(maximum());
    default:
        return QWidget::keyPressEvent(event);
    }
}

void SliderHandle::focusInEvent(QFocusEvent * /*event*/)
{
    slider_.update();
}

void SliderHandle::focusOutEvent(QFocusEvent * /*event*/)
{
    slider_.update();
}
