#include "collage/editor/CollageControls.h"

#include "Shared/NumberText.h"
#include "collage/editor/NumberField.h"
#include "platform/widgets/ColorWell.h"
#include "platform/widgets/FractionSlider.h"

#include <QCheckBox>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

CollageControls::CollageControls(QWidget &form, FieldEditingDelegate &delegate, Changes changes) :
    changes_(std::move(changes))
{
    numbers_.reserve(CollageFields::numbers.size()); // connections refer to what is in there
    for (const CollageFields::Number &row : CollageFields::numbers) {
        auto *field = form.findChild<NumberField *>(QLatin1StringView(row.control));
        field->setMinimum(row.acceptedFrom);
        auto *slider = row.slider ? form.findChild<FractionSlider *>(QLatin1StringView(row.slider)) : nullptr;
        numbers_.push_back({row, field, slider, std::make_unique<FieldEditing>(*field, delegate)});
        if (slider) {
            QObject::connect(slider, &QSlider::valueChanged, &life_,
                             [this, &number = numbers_.back()] { changes_.slider(number); });
        }
    }
    colors_.reserve(CollageFields::colors.size());
    for (const CollageFields::Color &row : CollageFields::colors) {
        colors_.push_back({row, form.findChild<ColorWell *>(QLatin1StringView(row.control))});
        const Color &color = colors_.back();
        QObject::connect(color.well, &ColorWell::colorChosen, &life_, [this, &color] { changes_.color(color); });
    }
    for (const CollageFields::Switch &row : CollageFields::switches) {
        switches_.push_back({row, form.findChild<QCheckBox *>(QLatin1StringView(row.control))});
    }
}

void CollageControls::fill(const CollageSettings &settings)
{
    for (const Color &color : colors_) {
        color.well->setColor(settings.*color.row.member);
    }
    for (const Number &number : numbers_) {
        const double value = number.row.in(settings);
        show(*number.field, value);
        if (number.slider) {
            // The margin is written from its slider in whole pixels, so the slider shows whole pixels from the start.
            const bool isMargin = number.row.is(&CollageSettings::borderWidth);
            number.slider->setDoubleValue(isMargin ? GlobalFun::truncatedToInt32(value) : value);
        }
    }
    for (const Switch &control : switches_) {
        const QSignalBlocker quiet(control.box);
        control.box->setChecked(settings.*control.row.member);
    }
}

void CollageControls::readInto(CollageForm &form) const
{
    std::ranges::transform(numbers_, form.numbers.begin(), [](const auto &each) { return valueIn(*each.field); });
    std::ranges::transform(colors_, form.colors.begin(), [](const auto &each) { return each.well->color(); });
    std::ranges::transform(switches_, form.switches.begin(), [](const auto &each) { return each.box->isChecked(); });
    const auto margin =
        std::ranges::find_if(numbers_, [](const auto &number) { return number.row.is(&CollageSettings::borderWidth); });
    form.slidBorderWidth = GlobalFun::truncatedToInt32(margin->slider->doubleValue());
}

const CollageControls::Number *CollageControls::numberOf(const QLineEdit &field) const
{
    const auto found = std::ranges::find(numbers_, &field, &Number::field);
    return found == numbers_.end() ? nullptr : &*found;
}

void CollageControls::show(QLineEdit &field, double value)
{
    field.setText(QString::number(GlobalFun::truncatedToInt32(value)));
}

std::int32_t CollageControls::valueIn(const QLineEdit &field)
{
    return GlobalFun::leadingInt32(field.text());
}

bool CollageControls::endEditing()
{
    return std::ranges::all_of(numbers_, [](const auto &number) { return number.editing->endEditing(); });
}

void CollageControls::abandonEditing()
{
    std::ranges::for_each(numbers_, [](const auto &number) { number.editing->abandonEditing(); });
}

void CollageControls::releaseSliders()
{
    for (const Number &number : numbers_) {
        if (number.slider) {
            number.slider->release();
        }
    }
}
