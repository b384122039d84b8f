#pragma once

#include "collage/editor/BaseSliderView.h"
#include "collage/editor/SliderHandle.h"

/// A slider whose selection the user changes by two handles, at its start and its end, with the mouse or the keyboard.
/// Its values are seconds to screen readers. Part of the editor's window; main thread. What the program does not call
/// belongs to the vocabulary.
class SplitSliderView final : public BaseSliderView {
    Q_OBJECT

public:
    /// The whole range is selected.
    explicit SplitSliderView(QWidget *parent = nullptr);

    /// Whoever changes the selection here calls update() afterwards.
    SliderSelectionItem &selectionItem() { return itemSelection; }
    const SliderSelectionItem &selectionItem() const { return itemSelection; }

    /// Where a handle was drawn last, in the widget's own coordinates.
    QRectF clipRect(bool bLeftClip) const;
    /// Moves a handle to a value of the range as one whole drag. Nothing while the mouse drags.
    void moveClip(bool bLeftClip, double value);

    /// Whether the knob is far enough from both ends of the selection to split it there.
    bool canBeSplited() const;
    /// Cuts the range and the selection off at the knob, when it is within the selection.
    void splitAtCurPoint();
    /// Cuts the range down to the selection, which starts at 0 then, wherever the point is.
    void splitAtPoint(double value);

    void mouseDownAt(QPointF point) override;
    void mouseDraggedTo(QPointF point) override;
    void mouseUpAt(QPointF point) override;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    void draw2Clips(QPainter &painter);
    void drawClip(QPainter &painter, bool bLeftClip);
    void holdClip(bool bLeftClip, QPointF point);
    void dragEdgeTo(bool bLeftClip, double value);
    double edgeUnderPointer(bool bLeftClip, double x) const;
    int heightForClips() const;
    SliderEdge edge(bool bLeftClip);
    SliderHandle &handleOf(bool bLeftClip) { return bLeftClip ? leftHandle_ : rightHandle_; }
    void hover(const SliderHandle *handle);

    bool bDraggingLeftClip = false;
    bool bDraggingRightClip = false;
    double dDragXoffset = 0.0; // between the pointer and the edge that is dragged, since the press
    QRectF rcClipLeft;         // as drawn last
    QRectF rcClipRight;
    SliderPiece imgLeftClip{QStringLiteral("SliderTrimLeft")};
    SliderPiece imgRightClip{QStringLiteral("SliderTrimRight")};
    SliderPiece imgLeftFocus{QStringLiteral("SliderFocusLeft")}; // the ring around the handle that has the focus
    SliderPiece imgRightFocus{QStringLiteral("SliderFocusRight")};
    SliderHandle leftHandle_;
    SliderHandle rightHandle_;
    const SliderHandle *hovered_ = nullptr;
};
