#include "app/table/JKDropInTipsView.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr double cornerRadius = 20.0;
constexpr double lineWidth = 4.0;
constexpr double dash = 22.0;
constexpr double stemWidth = 18.0;
constexpr int fontPixels = 18;
constexpr double textDistance = 20.0; // below the square
constexpr double textMargin = 12.0;   // at the sides, where the view is narrow
constexpr QPointF textShadow(-1.0, 1.0);

QPen dashedPen(const QColor &color)
{
    QPen pen(color, lineWidth);
    pen.setDashPattern({dash / lineWidth, dash / lineWidth}); // in units of the width
    pen.setCapStyle(Qt::FlatCap);
    return pen;
}

/// The arrow points down. It is in the middle of the square, `width` wide and high.
QPainterPath arrow(const QRectF &square, double width)
{
    const double inset = (square.width() - width) / 2.0;
    const double halfHead = width / 2.0;
    const double stemInset = (width - stemWidth) / 2.0;
    const double left = square.left() + inset;
    const double right = square.right() - inset;
    const double top = square.top() + inset;
    const double tip = square.bottom() - inset;

    QPainterPath path({left, tip - halfHead});
    path.lineTo(left + halfHead, tip);
    path.lineTo(right, tip - halfHead);
    path.lineTo(right - stemInset, tip - halfHead);
    path.lineTo(right - stemInset, top);
    path.lineTo(left + stemInset, top);
    path.lineTo(left + stemInset, tip - halfHead);
    path.closeSubpath();
    return path;
}

} // namespace

JKDropInTipsView::JKDropInTipsView(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_TransparentForMouseEvents); // a click still gives the table the keyboard
    setDefaultValue();
}

void JKDropInTipsView::setDefaultValue()
{
    normal_ = {QColor(236, 237, 235), QColor(162, 164, 166)};
    highlight_ = {QColor(117, 187, 231), QColor(247, 249, 251)};
    arrowWidth_ = 50.0;
    arrowRectWidth_ = 100.0;
    highlighted_ = false;
    update();
}

template<typename Value>
void JKDropInTipsView::change(Value &value, const Value &to)
{
    if (value != to) {
        value = to;
        update();
    }
}

void JKDropInTipsView::setStrPromot(const QString &text)
{
    change(promot_, text);
    setAccessibleName(text);
}

void JKDropInTipsView::setClrNorBg(const QColor &color)
{
    change(normal_.background, color);
}

void JKDropInTipsView::setClrHlBg(const QColor &color)
{
    change(highlight_.background, color);
}

void JKDropInTipsView::setClrNorArrowFill(const QColor &color)
{
    change(normal_.arrow, color);
}

void JKDropInTipsView::setClrHlArrowFill(const QColor &color)
{
    change(highlight_.arrow, color);
}

void JKDropInTipsView::setFArrowWidth(double width)
{
    change(arrowWidth_, width);
}

void JKDropInTipsView::setFArrowRectWidth(double width)
{
    change(arrowRectWidth_, width);
}

void JKDropInTipsView::setBHighlighted(bool isHighlighted)
{
    change(highlighted_, isHighlighted);
}

void JKDropInTipsView::paintEvent(QPaintEvent * /*event*/)
{
    const Colors &colors = highlighted_ ? highlight_ : normal_;
    const double side = arrowRectWidth_;
    const QRectF square((width() - side) / 2.0, (height() - side) / 2.0, side, side);

    QPainter painter(this);
    painter.fillRect(rect(), colors.background);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(dashedPen(colors.arrow));
    painter.drawRoundedRect(square, cornerRadius, cornerRadius);
    painter.fillPath(arrow(square, arrowWidth_), colors.arrow);
    drawText(painter, square, colors.arrow);
}

void JKDropInTipsView::drawText(QPainter &painter, const QRectF &square, const QColor &color) const
{
    if (promot_.isEmpty()) {
        return;
    }
    QFont large = font();
    large.setPixelSize(fontPixels);
    painter.setFont(large);
    QTextOption wrapped(Qt::AlignHCenter | Qt::AlignTop);
    wrapped.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const double top = square.bottom() + textDistance;
    const QRectF room(textMargin, top, width() - 2.0 * textMargin, height() - top);
    painter.setPen(Qt::white);
    painter.drawText(room.translated(textShadow), promot_, wrapped);
    painter.setPen(color);
    painter.drawText(room, promot_, wrapped);
}
