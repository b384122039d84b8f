#pragma once

#include "platform/widgets/FieldEditingDelegate.h"

#include <QWidget>

#include <array>

class AlertPanel;
class FieldEditing;
class SWTimeEditViewDelegate;
class TimeField;

/// Three fields with colons between them for a time in hours, minutes and seconds. A time that the delegate refuses is
/// taken back, with an alert. Part of the editor's window; main thread. What the program does not call belongs to the
/// vocabulary.
class SWTimeEditView final : public QWidget, private FieldEditingDelegate {
    Q_OBJECT

public:
    explicit SWTimeEditView(QWidget *parent = nullptr);

    SWTimeEditViewDelegate *delegate() const { return viewDelegate_; }
    /// Not owned. None at first: any time is kept then, and nobody hears of it.
    void setDelegate(SWTimeEditViewDelegate *delegate) { viewDelegate_ = delegate; }
    /// Shows the refusals. Not owned. None at first: refusals are silent then.
    void setAlertPanel(AlertPanel *panel) { alertPanel_ = panel; }

    /// Shows the whole seconds of a time; the delegate is not told. A time that is being entered is lost, but a refusal
    /// still goes back to what its editing began with; abandonEditing() after this makes it begin here.
    void flushWithSeconds(double seconds);
    /// The time in the fields as it stands there, entered or still being typed: 75 minutes are 4500 seconds, and what
    /// is no number is 0. Always finite.
    double secondsValue() const;

    /// Whether the user can change the time. True at first.
    void setEditable(bool editable);

    /// Ends the editing as leaving the field would. False when the time is refused: the focus is in the field then.
    bool endEditing();
    /// Ends the editing without asking or telling anybody.
    void abandonEditing();

    /// Room for times of four-digit hours.
    QSize sizeHint() const override;
    /// Room for times of three-digit hours.
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void controlTextDidBeginEditing(QLineEdit &field) override;
    void controlTextDidChange(QLineEdit &field) override;
    bool controlTextShouldEndEditing(QLineEdit &field) override;
    void controlTextDidEndEditing(QLineEdit &field) override;

    QRectF frameOfField(int index) const;
    QSize sizeForText(const QString &text) const;

    TimeField *lblHour;
    TimeField *lblMinite;
    TimeField *lblSecond;
    std::array<FieldEditing *, 3> editings_;
    bool bTextChanged = false;   // typed since the editing began
    double lastEnterValue = 0.0; // what a refusal goes back to, seconds
    SWTimeEditViewDelegate *viewDelegate_ = nullptr;
    AlertPanel *alertPanel_ = nullptr;
};
