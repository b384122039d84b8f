#include "platform/widgets/ColorWell.h"

#include "platform/MakeForQt.h"

#include <QColorDialog>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int frameWidth = 5; // of the button around the colour, pixels

void drawCheckerboard(QPainter &painter, const QRect &rect)
{
    constexpr int side = 4;
    painter.fillRect(rect, Qt::white);
    for (int y = 0; y < rect.height(); y += side) {
        for (int x = (y / side % 2) * side; x < rect.width(); x += 2 * side) {
            painter.fillRect(QRect(x, y, side, side).translated(rect.topLeft()) & rect, Qt::lightGray);
        }
    }
}

QColor colorOf(const QMimeData &data)
{
    return data.hasColor() ? qvariant_cast<QColor>(data.colorData()) : QColor();
}

} // namespace

ColorWell::ColorWell(QWidget *parent) : QAbstractButton(parent)
{
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleDescription(shownColor_.name(QColor::HexArgb));
    connect(this, &QAbstractButton::clicked, this, &ColorWell::openDialog);
}

void ColorWell::setColor(const QColor &color)
{
    const QColor valid = color.isValid() ? color : QColor(Qt::black);
    if (valid == shownColor_) {
        return;
    }
    shownColor_ = valid;
    setAccessibleDescription(shownColor_.name(QColor::HexArgb));
    update();
    Q_EMIT colorChanged(shownColor_);
}

QSize ColorWell::sizeHint() const
{
    QStyleOptionButton option;
    option.initFrom(this);
    const QSize content(fontMetrics().height() * 2, fontMetrics().height());
    return style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
}

void ColorWell::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    painter.drawControl(QStyle::CE_PushButton, option);
    const QRect frame = rect().adjusted(frameWidth, frameWidth, -frameWidth, -frameWidth);
    const QRect well = frame.adjusted(1, 1, -1, -1);
    if (!isEnabled()) {
        painter.setOpacity(0.4);
    }
    painter.fillRect(frame, palette().color(QPalette::Mid));
    drawCheckerboard(painter, well);
    painter.fillRect(well, shownColor_);
}

void ColorWell::dragEnterEvent(QDragEnterEvent *event)
{
    if (colorOf(*event->mimeData()).isValid()) {
        event->acceptProposedAction();
    }
}

void ColorWell::dropEvent(QDropEvent *event)
{
    const QColor dropped = colorOf(*event->mimeData());
    if (dropped.isValid()) {
        event->acceptProposedAction();
        choose(dropped);
    }
}

void ColorWell::openDialog()
{
    if (dialog_) {
        dialog_->raise();
        dialog_->activateWindow();
        return;
    }
    auto *opened = makeForQt<QColorDialog>(this);
    opened->setAttribute(Qt::WA_DeleteOnClose);
    opened->setOption(QColorDialog::ShowAlphaChannel); // first, or the colour would lose its alpha
    opened->setCurrentColor(shownColor_);
    opened->setWindowTitle(accessibleName());
    connect(opened, &QColorDialog::currentColorChanged, this, &ColorWell::choose);
    connect(opened, &QColorDialog::colorSelected, this, &ColorWell::choose);
    connect(opened, &QDialog::rejected, this, [this, before = shownColor_] { choose(before); });
    dialog_ = opened;
    opened->open();
}

void ColorWell::choose(const QColor &color)
{
    const bool isOther = color != shownColor_;
    setColor(color);
    if (isOther) {
        Q_EMIT colorChosen(shownColor_);
    }
}
