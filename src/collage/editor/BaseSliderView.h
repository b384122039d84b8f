#pragma once

#include "collage/editor/SliderPiece.h"
#include "collage/editor/SliderScale.h"
#include "collage/editor/SliderSelectionItem.h"

#include <QWidget>

#include <array>
#include <cstdint>
#include <optional>

class SliderViewDelegate;

/// A horizontal slider: a range of values along a track, a selected stretch of it, and a knob that can be dragged.
/// Points and rectangles are in the widget's pixels with y upwards from its bottom. Part of a window; main thread. What
/// the program does not call belongs to the vocabulary.
class BaseSliderView : public QWidget {
    Q_OBJECT

public:
    explicit BaseSliderView(QWidget *parent = nullptr);

    SliderViewDelegate *delegate() const { return viewDelegate_; }
    /// Not owned; none at first.
    void setDelegate(SliderViewDelegate *delegate) { viewDelegate_ = delegate; }

    /// The value at the left end of the track.
    double dMinValue() const { return minimum_; }
    /// The values along the track.
    double dLength() const { return length_; }
    /// The knob's value.
    double dCurValue() const { return current_; }
    /// Left and right inset of the track.
    double sliderXOffset() const { return trackX_; }
    double sliderYOffset() const { return trackY_; }
    double knobYOffset() const { return knobY_; }
    /// A state kept for the owner.
    std::int32_t curRecSliderState() const { return eumCurSliderState; }

    // What is no finite number counts as 0 in all of these.
    void setDMinValue(double value);
    void setDLength(double value);
    void setDCurValue(double value);
    void setSliderXOffset(double offset);
    void setSliderYOffset(double offset);
    void setKnobYOffset(double offset);
    void setCurRecSliderState(std::int32_t state) { eumCurSliderState = state; }

    void setSelection(double start, double selectedLength);
    /// Moves the knob and tells the delegate.
    void seekToValue(double value);

    /// The value at x, or at the nearest end of the track.
    double curProgressWithXValue(double x) const;
    /// The x of the value, or of the nearest end of the range.
    double curXValueWithProgress(double value) const;

    virtual void mouseDownAt(QPointF point);
    virtual void mouseDraggedTo(QPointF point);
    virtual void mouseUpAt(QPointF point);
    /// Ends what a press has begun, where it is, though the button is still held or its release never came.
    void release();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

    /// The track, then the selection.
    void draw(QPainter &painter);
    void drawSlider(QPainter &painter);
    void drawSelections(QPainter &painter);
    void drawKnob(QPainter &painter);
    /// A colour of the palette in the widget's present state, mixed with that of the texts (0: not at all, 1: wholly).
    QColor ink(QPalette::ColorRole role, double share = 0.0) const;
    /// From y upwards to the painter's y downwards, and back.
    QRectF flipped(const QRectF &rect) const;
    QPointF flipped(QPointF point) const;

    void beginDragAt(double value);
    void didChangeValue(double value);
    void endDragAt(double value);

    SliderSelectionItem itemSelection;
    QRectF rcSlider; // as drawn last

private:
    SliderScale scale() const;
    void placeTrack();
    double minimum_ = 0.0;
    double length_ = 1000.0;
    double current_ = 0.0;
    double trackX_ = 10.0;
    double trackY_ = 10.0;
    double knobY_ = 7.0;
    std::int32_t eumCurSliderState = 0;
    QRectF rcKnob; // as drawn last; empty before
    bool bDraggingKnob = false;
    std::optional<QPointF> pressed_; // where the pointer is, from a press to its release
    std::array<SliderPiece, 3> imgNormal{SliderPiece(QStringLiteral("SliderBkgLeft")),
                                         SliderPiece(QStringLiteral("SliderBkgMiddle")),
                                         SliderPiece(QStringLiteral("SliderBkgRight"))}; // left, middle, right
    std::array<SliderPiece, 3> imgHigh{SliderPiece(QStringLiteral("SliderAbLeft")),
                                       SliderPiece(QStringLiteral("SliderAbMiddle")),
                                       SliderPiece(QStringLiteral("SliderAbRight"))};
    SliderPiece imgKnob{QStringLiteral("SliderKnob")};
    SliderViewDelegate *viewDelegate_ = nullptr;
};
