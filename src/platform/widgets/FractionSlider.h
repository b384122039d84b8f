#pragma once

#include <QSlider>

/// A slider whose value has tenths; the range of the slider itself counts them. Main thread.
class FractionSlider final : public QSlider {
    Q_OBJECT
    Q_PROPERTY(double usualMaximum READ usualMaximum WRITE setUsualMaximum)

public:
    explicit FractionSlider(QWidget *parent = nullptr);

    double doubleValue() const;
    /// Shows the value without telling anybody. A value above the usual maximum makes the slider reach so far, and the
    /// next one below it brings the usual maximum back.
    void setDoubleValue(double value);
    /// The usual maximum, at least 1.
    double usualMaximum() const;
    void setUsualMaximum(double maximum);
    /// Lets go of the handle though the mouse still holds it.
    void release();

private:
    int usually_ = 1000; // the usual maximum, in the slider's own steps
};
