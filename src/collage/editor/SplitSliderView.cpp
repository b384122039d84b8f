#include "collage/editor/SplitSliderView.h"

#include "collage/editor/SliderViewDelegate.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr double splitDistance = 2.0; // of the knob from the selection's ends, at least
constexpr double hoverShade = 0.2;
constexpr double pressShade = 0.4;
constexpr double focusShade = 0.5;

} // namespace

SplitSliderView::SplitSliderView(QWidget *parent) :
    BaseSliderView(parent), leftHandle_(*this, edge(true)), rightHandle_(*this, edge(false))
{
    itemSelection.dLength = dLength();
    leftHandle_.setObjectName(u"leftClip"_s);
    rightHandle_.setObjectName(u"rightClip"_s);
    //% "Start handle"
    leftHandle_.setAccessibleName(qtTrId("slider_start_handle"));
    //% "End handle"
    rightHandle_.setAccessibleName(qtTrId("slider_end_handle"));
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setFocusProxy(&leftHandle_);
}

SliderEdge SplitSliderView::edge(bool bLeftClip)
{
    return {.value = [this, bLeftClip] { return bLeftClip ? itemSelection.dStart : itemSelection.end(); },
            .setValue = [this, bLeftClip](double value) { moveClip(bLeftClip, value); },
            .rect = [this, bLeftClip] { return clipRect(bLeftClip); }};
}

QRectF SplitSliderView::clipRect(bool bLeftClip) const
{
    return flipped(bLeftClip ? rcClipLeft : rcClipRight);
}

void SplitSliderView::moveClip(bool bLeftClip, double value)
{
    if (bDraggingLeftClip || bDraggingRightClip || !std::isfinite(value)) {
        return;
    }
    dragEdgeTo(bLeftClip, std::clamp(value, dMinValue(), dMinValue() + std::max(dLength(), 0.0)));
    if (SliderViewDelegate *const watcher = delegate()) {
        watcher->splitSliderViewBeginDragClip(*this, bLeftClip);
        watcher->splitSliderViewDragClipTo(*this, bLeftClip);
        watcher->splitSliderViewEndDragClip(*this, bLeftClip);
    }
}

void SplitSliderView::dragEdgeTo(bool bLeftClip, double value)
{
    if (bLeftClip) {
        itemSelection.moveStart(value);
    } else {
        itemSelection.moveEnd(value);
    }
    handleOf(bLeftClip).announce();
    update();
}

double SplitSliderView::edgeUnderPointer(bool bLeftClip, double x) const
{
    return curProgressWithXValue(bLeftClip ? x + dDragXoffset : x - dDragXoffset);
}

bool SplitSliderView::canBeSplited() const
{
    return itemSelection.dStart < dCurValue() - splitDistance && dCurValue() + splitDistance < itemSelection.end();
}

void SplitSliderView::splitAtCurPoint()
{
    if (itemSelection.dLength != 0.0 && itemSelection.dStart < dCurValue() && dCurValue() < itemSelection.end()) {
        itemSelection.dLength = dCurValue() - itemSelection.dStart;
        setDLength(itemSelection.dLength);
        setDCurValue(0.0);
    }
}

void SplitSliderView::splitAtPoint(double /*value*/)
{
    setDLength(itemSelection.dLength);
    itemSelection.dStart = 0.0;
}

void SplitSliderView::mouseDownAt(QPointF point)
{
    BaseSliderView::mouseDownAt(point);
    bDraggingLeftClip = false;
    bDraggingRightClip = false;
    if (rcClipLeft.contains(point)) {
        holdClip(true, point);
    } else if (rcClipRight.contains(point)) {
        holdClip(false, point);
    }
    update();
}

void SplitSliderView::holdClip(bool bLeftClip, QPointF point)
{
    SliderHandle &handle = handleOf(bLeftClip);
    handle.setFocus(Qt::MouseFocusReason);
    if (window()->focusWidget() != &handle) {
        return; // a field with a wrong text has kept the focus, and an alert says so
    }
    (bLeftClip ? bDraggingLeftClip : bDraggingRightClip) = true;
    dDragXoffset = std::abs(point.x() - (bLeftClip ? rcClipLeft.right() : rcClipRight.left()));
    dragEdgeTo(bLeftClip, edgeUnderPointer(bLeftClip, point.x()));
    if (delegate()) {
        delegate()->splitSliderViewBeginDragClip(*this, bLeftClip);
    }
}

void SplitSliderView::mouseDraggedTo(QPointF point)
{
    if (!bDraggingLeftClip && !bDraggingRightClip) {
        BaseSliderView::mouseDraggedTo(point);
        return;
    }
    const bool bLeftClip = bDraggingLeftClip;
    dragEdgeTo(bLeftClip, edgeUnderPointer(bLeftClip, point.x()));
    if (delegate()) {
        delegate()->splitSliderViewDragClipTo(*this, bLeftClip);
    }
}

void SplitSliderView::mouseUpAt(QPointF point)
{
    BaseSliderView::mouseUpAt(point);
    const bool held = bDraggingLeftClip || bDraggingRightClip;
    const bool bLeftClip = std::exchange(bDraggingLeftClip, false);
    bDraggingRightClip = false;
    update();
    if (held && delegate()) {
        delegate()->splitSliderViewEndDragClip(*this, bLeftClip);
    }
}

void SplitSliderView::mouseMoveEvent(QMouseEvent *event)
{
    BaseSliderView::mouseMoveEvent(event);
    if (event->buttons() == Qt::NoButton) {
        const QPointF point = flipped(event->position());
        hover(rcClipLeft.contains(point) ? &leftHandle_ : rcClipRight.contains(point) ? &rightHandle_ : nullptr);
    }
}

void SplitSliderView::leaveEvent(QEvent * /*event*/)
{
    hover(nullptr);
}

void SplitSliderView::hover(const SliderHandle *handle)
{
    if (handle != hovered_) {
        hovered_ = handle;
        handle ? setCursor(Qt::SizeHorCursor) : unsetCursor();
        update();
    }
}

QSize SplitSliderView::sizeHint() const
{
    return {BaseSliderView::sizeHint().width(), heightForClips()};
}

QSize SplitSliderView::minimumSizeHint() const
{
    return {BaseSliderView::minimumSizeHint().width(), heightForClips()};
}

int SplitSliderView::heightForClips() const
{
    return static_cast<int>(std::ceil(rcSlider.bottom() + imgLeftClip.size().height()));
}

void SplitSliderView::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    draw(painter);
    draw2Clips(painter);
}

void SplitSliderView::draw2Clips(QPainter &painter)
{
    const QSizeF size = imgLeftClip.size();
    const double top = rcSlider.bottom(); // y upwards: the handles stand on the track
    rcClipLeft = QRectF({curXValueWithProgress(itemSelection.dStart) - size.width(), top}, size);
    rcClipRight = QRectF({curXValueWithProgress(itemSelection.end()), top}, size);
    drawClip(painter, true);
    drawClip(painter, false);
}

void SplitSliderView::drawClip(QPainter &painter, bool bLeftClip)
{
    const SliderHandle &handle = handleOf(bLeftClip);
    const bool held = bLeftClip ? bDraggingLeftClip : bDraggingRightClip;
    const double shade = held ? pressShade : hovered_ == &handle ? hoverShade : 0.0;
    const QRectF rect = clipRect(bLeftClip);
    (bLeftClip ? imgLeftClip : imgRightClip).draw(painter, rect, ink(QPalette::Highlight, shade));
    if (handle.hasFocus()) {
        SliderPiece &ring = bLeftClip ? imgLeftFocus : imgRightFocus;
        const QPointF corner = bLeftClip ? rect.topLeft() : rect.topRight() - QPointF(ring.size().width(), 0.0);
        ring.draw(painter, QRectF(corner, ring.size()), ink(QPalette::Highlight, focusShade));
    }
}
