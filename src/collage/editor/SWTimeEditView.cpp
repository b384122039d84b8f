#include "collage/editor/SWTimeEditView.h"

#include "Shared/TimeFormat.h"
#include "collage/editor/SWTimeEditViewDelegate.h"
#include "collage/editor/TimeField.h"
#include "platform/MakeForQt.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/widgets/FieldEditing.h"

#include <QFontDatabase>
#include <QPainter>
#include <QStyleOptionFrame>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// In the widget's pixels.
constexpr double sideMargin = 10.0;
constexpr double fieldGap = 10.0;
constexpr double fieldMargin = 2.0; // above and below
constexpr double colonBottom = 3.0;
constexpr std::array<double, 2> colonDistances = {5.0, 4.0}; // behind the field before it
constexpr int colonSize = 12;

TimeField *newField(QWidget *parent, const QString &name)
{
    auto *field = makeForQt<TimeField>(parent);
    field->setObjectName(name);
    return field;
}

FieldEditing *newEditing(TimeField &field, FieldEditingDelegate &delegate, QObject *parent)
{
    return makeForQt<FieldEditing>(field, delegate, parent);
}

} // namespace

SWTimeEditView::SWTimeEditView(QWidget *parent) :
    QWidget(parent),
    lblHour(newField(this, u"lblHour"_s)),
    lblMinite(newField(this, u"lblMinite"_s)),
    lblSecond(newField(this, u"lblSecond"_s)),
    editings_{newEditing(*lblHour, *this, this), newEditing(*lblMinite, *this, this),
              newEditing(*lblSecond, *this, this)}
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
    setFocusProxy(lblHour);
    flushWithSeconds(0.0);
}

void SWTimeEditView::flushWithSeconds(double seconds)
{
    const GlobalFun::HourMinuteSecond time = GlobalFun::getHour(seconds);
    lblHour->setNumber(time.hours);
    lblMinite->setNumber(time.minutes);
    lblSecond->setNumber(time.seconds);
    bTextChanged = false;
}

double SWTimeEditView::secondsValue() const
{
    return lblHour->number() * 3600.0 + lblMinite->number() * 60.0 + lblSecond->number();
}

void SWTimeEditView::setEditable(bool editable)
{
    for (TimeField *const field : {lblHour, lblMinite, lblSecond}) {
        field->setReadOnly(!editable);
        field->setFrame(editable);
    }
}

bool SWTimeEditView::endEditing()
{
    return std::all_of(editings_.begin(), editings_.end(), [](FieldEditing *editing) { return editing->endEditing(); });
}

void SWTimeEditView::abandonEditing()
{
    for (FieldEditing *const editing : editings_) {
        editing->abandonEditing();
    }
}

void SWTimeEditView::controlTextDidBeginEditing(QLineEdit & /*field*/)
{
    bTextChanged = false;
    lastEnterValue = secondsValue();
}

void SWTimeEditView::controlTextDidChange(QLineEdit & /*field*/)
{
    bTextChanged = true;
}

bool SWTimeEditView::controlTextShouldEndEditing(QLineEdit & /*field*/)
{
    if (!viewDelegate_ || viewDelegate_->isValid(*this, secondsValue())) {
        return true;
    }
    if (alertPanel_) {
        //% "This time is outside the movie, or the start would come after the end."
        const QString title = qtTrId("WrongTimeInput");
        //% "OK"
        alertPanel_->show(title, {}, {qtTrId("OK")}, [](int) {});
    }
    flushWithSeconds(lastEnterValue);
    return false;
}

void SWTimeEditView::controlTextDidEndEditing(QLineEdit & /*field*/)
{
    if (bTextChanged && viewDelegate_) {
        viewDelegate_->didChangeValue(*this, secondsValue());
    }
    bTextChanged = false;
}

QRectF SWTimeEditView::frameOfField(int index) const
{
    const double fieldWidth = (width() - 2.0 * sideMargin - 2.0 * fieldGap) / 3.0;
    return {sideMargin + index * (fieldWidth + fieldGap), fieldMargin, fieldWidth, height() - 2.0 * fieldMargin};
}

void SWTimeEditView::resizeEvent(QResizeEvent * /*event*/)
{
    lblHour->setGeometry(frameOfField(0).toRect());
    lblMinite->setGeometry(frameOfField(1).toRect());
    lblSecond->setGeometry(frameOfField(2).toRect());
}

void SWTimeEditView::paintEvent(QPaintEvent * /*event*/)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(colonSize);
    QPainter painter(this);
    painter.setFont(font);
    painter.setPen(palette().color(QPalette::WindowText));
    const double baseline = height() - colonBottom - painter.fontMetrics().descent();
    for (int index = 0; index < 2; ++index) {
        const double x = frameOfField(index).right() + colonDistances.at(static_cast<std::size_t>(index));
        painter.drawText(QPointF(x, baseline), u":"_s);
    }
}

void SWTimeEditView::showEvent(QShowEvent * /*event*/)
{
    const auto name = [this](TimeField &field, const QString &unit) {
        field.setAccessibleName(accessibleName().isEmpty() ? unit : accessibleName() + u", " + unit);
    };
    //% "hours"
    name(*lblHour, qtTrId("time_hours"));
    //% "minutes"
    name(*lblMinite, qtTrId("time_minutes"));
    //% "seconds"
    name(*lblSecond, qtTrId("time_seconds"));
}

QSize SWTimeEditView::sizeForText(const QString &text) const
{
    constexpr int innerMargin = 3; // of a line edit, and half the caret
    const QSize wanted(lblHour->fontMetrics().horizontalAdvance(text) + 2 * innerMargin,
                       lblHour->fontMetrics().height());
    QStyleOptionFrame option;
    option.initFrom(lblHour);
    option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, lblHour);
    const QSize field = style()->sizeFromContents(QStyle::CT_LineEdit, &option, wanted, lblHour);
    return {3 * field.width() + qRound(2.0 * sideMargin + 2.0 * fieldGap), field.height() + qRound(2.0 * fieldMargin)};
}

QSize SWTimeEditView::sizeHint() const
{
    return sizeForText(u"0000"_s);
}

QSize SWTimeEditView::minimumSizeHint() const
{
    return sizeForText(u"000"_s);
}
