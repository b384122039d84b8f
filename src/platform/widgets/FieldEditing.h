#pragma once

#include <QLineEdit>
#include <QObject>
#include <QPointer>

class FieldEditingDelegate;

/// Watches one text field. Editing begins when the field gets the focus, and ends with the Return key or when the focus
/// is about to leave the field; the delegate can refuse that. It goes on while another window, such as an alert, is in
/// front. Main thread.
class FieldEditing final : public QObject {
    Q_OBJECT

public:
    /// Both must outlive this; a field that has gone is no longer watched.
    FieldEditing(QLineEdit &field, FieldEditingDelegate &delegate, QObject *parent = nullptr);

    /// Ends the editing as leaving the field would; a field that has the focus is edited anew from then on. False when
    /// the delegate refuses; the focus is in the field then.
    bool endEditing();
    /// Ends the editing without asking about it or telling of its end, as hiding and disabling the field do.
    void abandonEditing();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void beginEditing();
    void beginAnew();
    bool returnPressed();

    QPointer<QLineEdit> field_;
    FieldEditingDelegate &delegate_;
    bool editing_ = false;
    bool changed_ = false; // since the editing began
    bool asking_ = false;  // the delegate is being asked: what it shows moves the focus as well
};
