#include "platform/widgets/FieldEditing.h"

#include "platform/widgets/FieldEditingDelegate.h"

#include <QFocusEvent>
#include <QScopedValueRollback>

FieldEditing::FieldEditing(QLineEdit &field, FieldEditingDelegate &delegate, QObject *parent) :
    QObject(parent), field_(&field), delegate_(delegate)
{
    field_->installEventFilter(this);
    connect(field_, &QLineEdit::textEdited, this, [this] {
        beginEditing();
        changed_ = true;
        delegate_.controlTextDidChange(*field_);
    });
}

void FieldEditing::beginEditing()
{
    if (!editing_ && !field_->isReadOnly()) {
        editing_ = true;
        changed_ = false;
        delegate_.controlTextDidBeginEditing(*field_);
    }
}

bool FieldEditing::endEditing()
{
    if (!editing_ || asking_) {
        return !editing_;
    }
    if (!field_->isEnabled() || !field_->isVisible()) {
        abandonEditing(); // nobody could correct a refused text there
        return true;
    }
    const QScopedValueRollback isAsking(asking_, true);
    if (!delegate_.controlTextShouldEndEditing(*field_)) {
        field_->setFocus(Qt::OtherFocusReason);
        field_->selectAll();
        return false;
    }
    editing_ = false;
    delegate_.controlTextDidEndEditing(*field_);
    beginAnew();
    return true;
}

void FieldEditing::abandonEditing()
{
    editing_ = false;
    beginAnew();
}

void FieldEditing::beginAnew()
{
    if (field_->hasFocus() && field_->isVisible()) {
        beginEditing();
    }
}

bool FieldEditing::returnPressed()
{
    if (!changed_) {
        return false; // nothing to end: the window's default button may have it
    }
    if (endEditing()) {
        field_->selectAll();
    }
    return true;
}

bool FieldEditing::eventFilter(QObject *watched, QEvent *event)
{
    if (qobject_cast<QLineEdit *>(watched) == nullptr) {
        return false; // half destroyed
    }
    switch (event->type()) {
    case QEvent::FocusIn:
        beginEditing();
        return false;
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        const bool stays = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
        return !stays && !endEditing(); // the field does not see the event when it keeps the focus
    }
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return (key == Qt::Key_Return || key == Qt::Key_Enter) && returnPressed();
    }
    case QEvent::Hide:
        if (!event->spontaneous()) {
            abandonEditing();
        }
        return false;
    default:
        return false;
    }
}
