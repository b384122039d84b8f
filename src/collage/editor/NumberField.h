#pragma once

#include <QLineEdit>

class QToolButton;

/// A text field for a whole number with a stepper at its end. The arrow keys, the page keys, the stepper and, while the
/// field has the focus, the wheel change the number as typing does. Whatever may be typed stays text. Main thread.
class NumberField final : public QLineEdit {
    Q_OBJECT

public:
    explicit NumberField(QWidget *parent = nullptr);

    /// The smallest number that a step leads to; 0 at first. Smaller ones can still be typed.
    void setMinimum(int minimum) { minimum_ = minimum; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QToolButton *makeStepper(Qt::ArrowType arrow, int steps);
    void step(int steps);
    void placeSteppers();

    int minimum_ = 0;
    int wheelTurned_ = 0; ///< since the last step, in eighths of a degree
    QToolButton *more_;
    QToolButton *less_;
};
