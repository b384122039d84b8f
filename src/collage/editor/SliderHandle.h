#pragma once

#include <QWidget>

class SplitSliderView;

/// One handle of a range slider as the keyboard and screen readers know it; the slider draws it and takes its mouse.
/// Child of its slider; main thread.
class SliderHandle final : public QWidget {
    Q_OBJECT

public:
    SliderHandle(SplitSliderView &slider, bool bLeftClip);

    /// The edge of the selection that this handle moves, seconds.
    double value() const;
    /// Moves the edge as a drag would.
    void setValue(double seconds);
    /// The ends of the slider's range.
    double minimum() const;
    double maximum() const;
    /// Where the slider has drawn it last, in the slider's coordinates.
    QRect rectInSlider() const;
    /// Tells screen readers that the edge has moved.
    void announce();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    SplitSliderView &slider;
    const bool bLeftClip;
};
