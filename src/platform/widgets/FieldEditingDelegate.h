#pragma once

class QLineEdit;

/// Hears of the editing of text fields and decides whether it may end. Main thread.
class FieldEditingDelegate {
public:
    virtual ~FieldEditingDelegate() = default;

    virtual void controlTextDidBeginEditing(QLineEdit & /*field*/) {}
    /// The user has changed the text, by a keystroke or otherwise.
    virtual void controlTextDidChange(QLineEdit & /*field*/) {}
    /// Whether the text may stay as it is. False keeps the focus in the field; the delegate tells the user why.
    virtual bool controlTextShouldEndEditing(QLineEdit & /*field*/) { return true; }
    virtual void controlTextDidEndEditing(QLineEdit & /*field*/) {}
};
