#pragma once

#include <QLineEdit>

/// A field for one number of a time: centred, in small type, without a mark of the focus round it. The Up and Down keys
/// count as typing the next number. Child of its time entry view; main thread.
class TimeField final : public QLineEdit {
    Q_OBJECT

public:
    explicit TimeField(QWidget *parent);

    /// The number in the field, in C's notation; 0 for any other text. So large at most that times can be made of it.
    double number() const;
    /// Shows the number with two digits at least.
    void setNumber(int number);

protected:
    void initStyleOption(QStyleOptionFrame *option) const override;
    void keyPressEvent(QKeyEvent *event) override;
};
