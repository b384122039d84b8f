#pragma once

#include <QAbstractButton>
#include <QColor>
#include <QPointer>

class QColorDialog;

/// A button that shows a colour, on a checkerboard if it is transparent. The user chooses another one in a colour
/// dialog, whose choice shows at once, or by dropping a colour on the button.
class ColorWell final : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit ColorWell(QWidget *parent = nullptr);

    /// White at first; always valid.
    QColor color() const { return shownColor_; }
    /// An invalid colour is taken for opaque black.
    void setColor(const QColor &color);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Another colour is shown, whoever has chosen it.
    void colorChanged(const QColor &color);
    /// The user has chosen another colour; follows colorChanged().
    void colorChosen(const QColor &color);

protected:
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void openDialog();
    void choose(const QColor &color);

    QColor shownColor_ = Qt::white;
    QPointer<QColorDialog> dialog_;
};
