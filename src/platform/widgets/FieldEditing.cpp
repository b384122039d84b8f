#include "platform/widgets/FieldEditing.h"

#include "platform/widgets/FieldEditingDelegate.h"

#include <QFocusEvent>
#include <QScopedValueRollback>

FieldEditing::FieldEditing(QLineEdit &lineEdit, FieldEditingDelegate &editingDelegate, QObject *parent) :
    QObject(parent), field(&lineEdit), delegate(editingDelegate)
{
    field->installEventFilter(this);
    connect(field, &QLineEdit::textEdited, this, [this] {
        beginEditing();
        changed = true;
        delegate.controlTextDidChange(*field);
    });
}

void FieldEditing::beginEditing()
{
    if (!editing && !field->isReadOnly()) {
        editing = true;
        changed = false;
        delegate.controlTextDidBeginEditing(*field);
    }
}

bool FieldEditing::endEditing()
{
    if (!editing || asking) {
        return !editing;
    }
    if (!field->isEnabled() || !field->isVisible()) {
        abandonEditing(); // a refused text could not be mended there, and one that nobody judged is not told of
        return true;
    }
    const QScopedValueRollback isAsking(asking, true);
    if (!delegate.controlTextShouldEndEditing(*field)) {
        field->setFocus(Qt::OtherFocusReason);
        field->selectAll();
        return false;
    }
    editing = false;
    delegate.controlTextDidEndEditing(*field);
    beginAnew();
    return true;
}

void FieldEditing::abandonEditing()
{
    editing = false;
    beginAnew();
}

void FieldEditing::beginAnew()
{
    if (field->hasFocus() && field->isVisible()) {
        beginEditing();
    }
}

bool FieldEditing::returnPressed()
{
    if (!changed) {
        return false; // nothing to end: the window's default button may have it
    }
    if (endEditing()) {
        field->selectAll();
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
        return !stays && !endEditing(); // a field that has the focus back never knows that it was gone
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
