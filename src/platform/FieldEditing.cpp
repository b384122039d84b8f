#include "platform/FieldEditing.h"

#include "platform/FieldEditingDelegate.h"

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
    if (!editing) {
        editing = true;
        changed = false;
        delegate.controlTextDidBeginEditing(*field);
    }
}

bool FieldEditing::endEditing()
{
    if (!editing || asking) {
        return !asking;
    }
    const QScopedValueRollback isAsking(asking, true);
    // A field that has become unreachable could not be mended by the user.
    if (field->isEnabled() && field->isVisible() && !delegate.controlTextShouldEndEditing(*field)) {
        field->setFocus(Qt::OtherFocusReason);
        field->selectAll();
        return false;
    }
    editing = false;
    changed = false;
    delegate.controlTextDidEndEditing(*field);
    return true;
}

void FieldEditing::abandonEditing()
{
    editing = false;
    changed = false;
}

bool FieldEditing::returnPressed()
{
    if (!changed) {
        return false; // nothing to end: the window's default button may have it
    }
    if (endEditing()) {
        field->selectAll();
        beginEditing();
    }
    return true;
}

bool FieldEditing::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != field) {
        return false;
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
    default:
        return false;
    }
}
