#include "platform/widgets/ElidedLabel.h"

#include "platform/widgets/ToolTipText.h"

#include <QHelpEvent>
#include <QStyle>
#include <QStylePainter>
#include <QToolTip>

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::sizeHint().height()};
}

QString ElidedLabel::shown() const
{
    return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QStylePainter painter(this);
    painter.drawItemText(contentsRect(), static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                         palette(), isEnabled(), shown(), foregroundRole());
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) {
        return QLabel::event(event);
    }
    const QString tip = shown() == text() ? QString() : plainToolTip(text());
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
    return true;
}
