#pragma once

#include <QWidget>

#include <functional>

class BaseSliderView;

/// The edge of the selection that a handle moves, as its slider has it.
struct SliderEdge {
    std::function<double()> value;        ///< seconds
    std::function<void(double)> setValue; ///< as a drag would
    std::function<QRectF()> rect;         ///< where its handle was drawn last, in the slider's coordinates
};

/// One handle of a range slider as the keyboard and screen readers know it; the slider draws it and takes its mouse.
/// Child of its slider; main thread.
class SliderHandle final : public QWidget {
    Q_OBJECT

public:
    SliderHandle(BaseSliderView &slider, SliderEdge movedEdge);

    const SliderEdge &edge() const { return movedEdge_; }
    /// The ends of the slider's range.
    double minimum() const;
    double maximum() const;
    /// Tells screen readers that the edge has moved.
    void announce();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    BaseSliderView &slider_;
    const SliderEdge movedEdge_;
};
