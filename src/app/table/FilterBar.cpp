#include "app/table/FilterBar.h"

#include "platform/MakeForQt.h"
#include "platform/widgets/SymbolicIcon.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

FilterBar::FilterBar(QWidget *parent) : QWidget(parent), field_(makeForQt<QLineEdit>(this))
{
    //% "Filter:"
    auto *label = makeForQt<QLabel>(qtTrId("filter_label"), this);
    label->setBuddy(field_);
    field_->setObjectName(u"filterField"_s);
    //% "Words in the name or the path"
    field_->setPlaceholderText(qtTrId("filter_placeholder"));
    //% "Filter"
    field_->setAccessibleName(qtTrId("filter_field"));
    field_->setClearButtonEnabled(true);
    auto *button = makeForQt<QToolButton>(this);
    button->setAutoRaise(true);
    button->setIcon(symbolicIcon(u"close"_s));
    //% "Close the filter"
    button->setToolTip(qtTrId("filter_close"));
    button->setAccessibleName(button->toolTip());
    auto *layout = makeForQt<QHBoxLayout>(this);
    layout->setContentsMargins(12, 6, 12, 6);
    layout->addWidget(label);
    layout->addWidget(field_);
    layout->addWidget(button);
    connect(field_, &QLineEdit::textChanged, this, &FilterBar::textChanged);
    connect(button, &QToolButton::clicked, this, &FilterBar::dismiss);
    hide();
}

void FilterBar::open()
{
    show();
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

void FilterBar::dismiss()
{
    field_->clear();
    hide();
    Q_EMIT left();
}

void FilterBar::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        dismiss();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Down:
        Q_EMIT left();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}
