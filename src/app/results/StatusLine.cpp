#include "app/results/StatusLine.h"

#include "platform/MakeForQt.h"
#include "platform/widgets/ElidedLabel.h"
#include "platform/widgets/ToolTipText.h"

#include <QHBoxLayout>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

StatusLine::StatusLine(QWidget *parent) :
    QWidget(parent),
    offers_(makeForQt<QHBoxLayout>()),
    lblStatus_(makeForQt<ElidedLabel>(this)),
    lblSummary_(makeForQt<QLabel>(this))
{
    auto *layout = makeForQt<QHBoxLayout>(this);
    layout->setContentsMargins({});
    layout->addWidget(lblStatus_, 1); // it gives way: what it cannot show is in its tooltip
    layout->addLayout(offers_);
    layout->addWidget(lblSummary_);
    lblStatus_->setObjectName(u"lblStatus"_s);
    lblSummary_->setObjectName(u"lblSummary"_s);
    lblSummary_->setTextFormat(Qt::PlainText);
}

void StatusLine::tell(const QString &text, const QString &details)
{
    lblStatus_->setText(text);
    lblStatus_->setToolTip(plainToolTip(details));
    offer({});
}

void StatusLine::offer(const QList<QAction *> &actions)
{
    while (const std::unique_ptr<QLayoutItem> item{offers_->takeAt(0)}) {
        item->widget()->hide();
        item->widget()->deleteLater(); // perhaps one of them has just been clicked
    }
    for (QAction *action : actions) {
        auto *button = makeForQt<QToolButton>(this);
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextOnly);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        offers_->addWidget(button);
    }
}

void StatusLine::summarize(const QString &text)
{
    lblSummary_->setText(text);
}
