#pragma once

#include <QLabel>

/// One line of plain text that takes whatever width it is given: a text that is too long loses its middle, and the
/// whole of it becomes the tooltip, unless another is set. Main thread.
class ElidedLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    QString shown() const;
};
