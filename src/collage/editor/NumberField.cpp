#include "collage/editor/NumberField.h"

#include "Shared/NumberText.h"
#include "platform/MakeForQt.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace {

constexpr int pageSteps = 10;

/// How far a key steps; 0 for those that do not.
int stepsOf(int key)
{
    switch (key) {
    case Qt::Key_Up:
        return 1;
    case Qt::Key_Down:
        return -1;
    case Qt::Key_PageUp:
        return pageSteps;
    case Qt::Key_PageDown:
        return -pageSteps;
    default:
        return 0;
    }
}

} // namespace

NumberField::NumberField(QWidget *parent) :
    QLineEdit(parent), more_(makeStepper(Qt::UpArrow, 1)), less_(makeStepper(Qt::DownArrow, -1))
{
    placeSteppers();
}

QToolButton *NumberField::makeStepper(Qt::ArrowType arrow, int steps)
{
    auto *button = makeForQt<QToolButton>(this);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setAutoRepeat(true);
    button->setCursor(Qt::ArrowCursor);
    button->setFocusPolicy(Qt::NoFocus);
    connect(button, &QToolButton::clicked, this, [this, steps] {
        setFocus(Qt::MouseFocusReason);
        if (hasFocus()) { // a field that refuses to be left keeps it
            step(steps);
        }
    });
    return button;
}

void NumberField::step(int steps)
{
    if (isReadOnly() || !isEnabled()) {
        return;
    }
    const std::int64_t wanted = std::int64_t{GlobalFun::leadingInt32(text())} + steps;
    selectAll();
    insert(QString::number(
        std::clamp<std::int64_t>(wanted, minimum_, std::numeric_limits<std::int32_t>::max()))); // counts as typed
    selectAll();
}

void NumberField::keyPressEvent(QKeyEvent *event)
{
    if (const int steps = event->modifiers() == Qt::NoModifier ? stepsOf(event->key()) : 0) {
        step(steps);
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void NumberField::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus()) {
        event->ignore(); // the pointer only passes by
        return;
    }
    wheelTurned_ += event->angleDelta().y();
    if (const int steps = wheelTurned_ / QWheelEvent::DefaultDeltasPerStep) {
        wheelTurned_ -= steps * QWheelEvent::DefaultDeltasPerStep;
        step(steps);
    }
    event->accept();
}

void NumberField::resizeEvent(QResizeEvent *event)
{
    QLineEdit::resizeEvent(event);
    placeSteppers();
}

void NumberField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange) {
        placeSteppers();
    }
}

void NumberField::placeSteppers()
{
    constexpr int frame = 2;
    const int width = std::max(14, fontMetrics().height() * 7 / 8);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const QRect inside = rect().adjusted(frame, frame, -frame, -frame);
    const int left = isMirrored ? inside.left() : inside.right() + 1 - width;
    const int half = inside.height() / 2;
    more_->setGeometry(left, inside.top(), width, half);
    less_->setGeometry(left, inside.top() + half, width, inside.height() - half);
    setTextMargins(isMirrored ? width : 0, 0, isMirrored ? 0 : width, 0);
}
