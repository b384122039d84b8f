#include "collage/editor/TimeField.h"

#include "Shared/NumberText.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QLocale>
#include <QStyleOptionFrame>

#include <algorithm>
#include <cmath>

namespace {

constexpr double fontSize = 10.0; // points
constexpr double largest = 1e300; // its hours still make a finite number of seconds

} // namespace

TimeField::TimeField(QWidget *parent) : QLineEdit(parent)
{
    QFont small = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    small.setPointSizeF(fontSize);
    setFont(small);
    setAlignment(Qt::AlignCenter);
}

double TimeField::number() const
{
    const double value = QLocale::c().toDouble(text().trimmed());
    return std::isfinite(value) ? std::clamp(value, -largest, largest) : 0.0;
}

void TimeField::setNumber(int number)
{
    setText(QString::asprintf("%02d", number));
}

void TimeField::initStyleOption(QStyleOptionFrame *option) const
{
    QLineEdit::initStyleOption(option);
    option->state &= ~QStyle::State_HasFocus;
    if (isReadOnly()) {
        option->palette.setColor(QPalette::Base, Qt::transparent);
    }
}

void TimeField::keyPressEvent(QKeyEvent *event)
{
    const bool up = event->key() == Qt::Key_Up;
    if (isReadOnly() || (!up && event->key() != Qt::Key_Down)) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    const double stepped = std::max(std::trunc(number()) + (up ? 1.0 : -1.0), 0.0);
    setNumber(GlobalFun::truncatedToInt32(stepped));
    selectAll();
    Q_EMIT textEdited(text());
}
