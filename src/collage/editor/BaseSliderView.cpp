#include "collage/editor/BaseSliderView.h"

#include "collage/editor/SliderViewDelegate.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double knobReach = 5.0; // around the knob, where a press still means it
constexpr QSize usualSize(240, 32);
constexpr double trackShade = 0.22; // how much of the texts' colour the track has

double finiteOrZero(double value)
{
    return std::isfinite(value) ? value : 0.0;
}

/// Both ends at their own width, the middle stretched; in a space too narrow for that, the ends share it.
void drawThreeParts(QPainter &painter, std::array<SliderPiece, 3> &parts, const QRectF &rect, const QColor &color)
{
    const double leftEnd = rect.left() + std::min(parts[0].size().width(), rect.width() / 2.0);
    const double rightEnd = rect.right() - std::min(parts[2].size().width(), rect.width() / 2.0);
    parts[0].draw(painter, {rect.topLeft(), QPointF(leftEnd, rect.bottom())}, color);
    parts[1].draw(painter, {QPointF(leftEnd, rect.top()), QPointF(rightEnd, rect.bottom())}, color);
    parts[2].draw(painter, {QPointF(rightEnd, rect.top()), rect.bottomRight()}, color);
}

} // namespace

BaseSliderView::BaseSliderView(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    placeTrack();
}

void BaseSliderView::setDMinValue(double value)
{
    minimum_ = finiteOrZero(value);
    update();
}

void BaseSliderView::setDLength(double value)
{
    length_ = finiteOrZero(value);
    update();
}

void BaseSliderView::setDCurValue(double value)
{
    current_ = finiteOrZero(value);
    update();
}

void BaseSliderView::setSliderXOffset(double offset)
{
    trackX_ = finiteOrZero(offset);
    placeTrack();
}

void BaseSliderView::setSliderYOffset(double offset)
{
    trackY_ = finiteOrZero(offset);
    placeTrack();
    updateGeometry();
}

void BaseSliderView::setKnobYOffset(double offset)
{
    knobY_ = finiteOrZero(offset);
    update();
}

void BaseSliderView::setSelection(double start, double selectedLength)
{
    itemSelection = {start, selectedLength};
    update();
}

void BaseSliderView::seekToValue(double value)
{
    setDCurValue(value);
    didChangeValue(current_);
}

double BaseSliderView::curProgressWithXValue(double x) const
{
    return scale().valueAt(x);
}

double BaseSliderView::curXValueWithProgress(double value) const
{
    return scale().xOf(value);
}

SliderScale BaseSliderView::scale() const
{
    return {trackX_, rcSlider.width(), minimum_, length_};
}

void BaseSliderView::placeTrack()
{
    rcSlider = QRectF(trackX_, trackY_, width() - 2.0 * trackX_, imgNormal[0].size().height());
    update();
}

void BaseSliderView::resizeEvent(QResizeEvent * /*event*/)
{
    placeTrack();
}

QSize BaseSliderView::sizeHint() const
{
    return usualSize;
}

QSize BaseSliderView::minimumSizeHint() const
{
    return {usualSize.width() / 3, usualSize.height()};
}

void BaseSliderView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    draw(painter);
    drawKnob(painter);
}

void BaseSliderView::draw(QPainter &painter)
{
    drawSlider(painter);
    drawSelections(painter);
}

void BaseSliderView::drawSlider(QPainter &painter)
{
    drawThreeParts(painter, imgNormal, flipped(rcSlider), ink(QPalette::Window, trackShade));
}

void BaseSliderView::drawSelections(QPainter &painter)
{
    if (!(itemSelection.dLength > 0.0)) {
        return;
    }
    // What reaches beyond the widget is cut off outside it, so far away that the ends of the drawing are not seen.
    const auto edge = [this](double value) { return std::clamp(scale().unboundedXOf(value), -100.0, width() + 100.0); };
    QRectF selected = rcSlider;
    selected.setLeft(edge(itemSelection.dStart));
    selected.setRight(edge(itemSelection.end()));
    drawThreeParts(painter, imgHigh, flipped(selected), ink(QPalette::Highlight));
}

void BaseSliderView::drawKnob(QPainter &painter)
{
    const QSizeF size = imgKnob.size();
    rcKnob = QRectF({curXValueWithProgress(current_) - size.width() / 2.0, knobY_}, size);
    imgKnob.draw(painter, flipped(rcKnob), ink(QPalette::Highlight, bDraggingKnob ? 0.3 : 0.0));
}

QColor BaseSliderView::ink(QPalette::ColorRole role, double share) const
{
    const QColor color = palette().color(role);
    const QColor text = palette().color(QPalette::WindowText);
    const auto mixed = [share](int own, int other) { return qRound(own + (other - own) * share); };
    return QColor(mixed(color.red(), text.red()), mixed(color.green(), text.green()), mixed(color.blue(), text.blue()));
}

QRectF BaseSliderView::flipped(const QRectF &rect) const
{
    return {rect.x(), height() - rect.bottom(), rect.width(), rect.height()};
}

QPointF BaseSliderView::flipped(QPointF point) const
{
    return {point.x(), height() - point.y()};
}

void BaseSliderView::mouseDownAt(QPointF point)
{
    bDraggingKnob = rcKnob.adjusted(-knobReach, -knobReach, knobReach, knobReach).contains(point);
    if (bDraggingKnob) {
        setDCurValue(curProgressWithXValue(point.x()));
        beginDragAt(current_);
    }
}

void BaseSliderView::mouseDraggedTo(QPointF point)
{
    if (bDraggingKnob) {
        setDCurValue(curProgressWithXValue(point.x()));
        didChangeValue(current_);
    }
}

void BaseSliderView::mouseUpAt(QPointF point)
{
    if (bDraggingKnob) {
        setDCurValue(curProgressWithXValue(point.x()));
        bDraggingKnob = false;
        endDragAt(current_);
    }
}

void BaseSliderView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressed_ = flipped(event->position());
    mouseDownAt(*pressed_);
}

void BaseSliderView::mouseMoveEvent(QMouseEvent *event)
{
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        release();
    } else if (pressed_) {
        pressed_ = flipped(event->position());
        mouseDraggedTo(*pressed_);
    }
}

void BaseSliderView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && pressed_) {
        pressed_ = flipped(event->position());
        release();
    }
}

void BaseSliderView::hideEvent(QHideEvent * /*event*/)
{
    release();
}

void BaseSliderView::release()
{
    if (pressed_) {
        mouseUpAt(*std::exchange(pressed_, std::nullopt));
    }
}

void BaseSliderView::beginDragAt(double value)
{
    if (viewDelegate_) {
        viewDelegate_->beginDragAt(*this, value);
    }
}

void BaseSliderView::didChangeValue(double value)
{
    if (viewDelegate_) {
        viewDelegate_->didChangeValue(*this, value);
    }
}

void BaseSliderView::endDragAt(double value)
{
    if (viewDelegate_) {
        viewDelegate_->endDragAt(*this, value);
    }
}
