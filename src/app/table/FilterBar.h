#pragma once

#include <QWidget>

class QLineEdit;

/// The bar over the table in which a text is typed that movies must have to be shown. Closed at first. Main thread.
class FilterBar final : public QWidget {
    Q_OBJECT

public:
    explicit FilterBar(QWidget *parent = nullptr);

    /// Shows the bar and puts the keyboard into it.
    void open();
    /// Hides it; nothing is filtered any more.
    void dismiss();

Q_SIGNALS:
    void textChanged(const QString &text);
    /// The keyboard is to go back to the table.
    void left();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLineEdit *field_;
};
