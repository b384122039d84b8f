#include "app/window/StatusLine.h"

#include "platform/MakeForQt.h"
#include "platform/widgets/ElidedLabel.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

StatusLine::StatusLine(QWidget *parent) :
    QWidget(parent), lblStatus_(makeForQt<ElidedLabel>(this)), lblSummary_(makeForQt<QLabel>(this))
{
    auto *layout = makeForQt<QHBoxLayout>(this);
    layout->setContentsMargins({});
    layout->addWidget(lblStatus_, 1); // it gives way: what it cannot show is in its tooltip
    layout->addWidget(lblSummary_);
    lblStatus_->setObjectName(u"lblStatus"_s);
    lblSummary_->setObjectName(u"lblSummary"_s);
    lblSummary_->setTextFormat(Qt::PlainText);
}

void StatusLine::tell(const QString &text, const QString &details)
{
    lblStatus_->setText(text);
    lblStatus_->setToolTip(details);
}

void StatusLine::summarize(const QString &text)
{
    lblSummary_->setText(text);
}
