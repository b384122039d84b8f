#pragma once

#include "Shared/PreferenceKeys.h"
#include "collage/CollageSettings.h"

#include <QLatin1StringView>

#include <array>
#include <cstdint>
#include <variant>

/// The settings of a collage that have a control in the editor, a row for each: the editor, its form and the default
/// parameters walk these tables. A setting without a default has no key.
namespace CollageFields {

/// A whole number that is typed, perhaps with a slider beside it.
struct Number {
    const char *control; ///< object name of the text field
    const char *slider;  ///< of the slider; null where there is none
    std::variant<std::int32_t CollageSettings::*, double CollageSettings::*> member;
    std::int32_t shownFrom;    ///< the smallest value that shows in the collage while it is being typed
    std::int32_t acceptedFrom; ///< the smallest value that may stay in its field
    QLatin1StringView storedUnder;
    QLatin1StringView readFrom;

    double in(const CollageSettings &settings) const;
    void put(CollageSettings &settings, double value) const;
    bool isTileSide() const;
    /// Whether it is this number.
    template<class Field>
    constexpr bool is(Field CollageSettings::*field) const
    {
        const auto *own = std::get_if<Field CollageSettings::*>(&member);
        return own && *own == field;
    }
};

struct Color {
    const char *control; ///< object name of the colour well
    QColor CollageSettings::*member;
    QLatin1StringView key;
    Qt::GlobalColor whenAbsent;
};

struct Switch {
    const char *control; ///< object name of the check box
    bool CollageSettings::*member;
    QLatin1StringView key;
};

namespace Key = PreferenceKeys;
using S = CollageSettings;

// Tile sizes show from 50 pixels on, so that the preview does not jump while the first digits of "300" are typed. Each
// of the two gaps is read from the key under which the other is stored, on purpose: the next movie gets them swapped,
// and stores in use rely on that.
// clang-format off
inline constexpr auto numbers = std::to_array<Number>({
    // control            slider               member               shown accepted  stored under           read from
    {"lblGridRowNum",     nullptr,             &S::rowNumber,       1,    1,        Key::rowNumber,        Key::rowNumber},
    {"lblGridColumeNum",  nullptr,             &S::columeNumber,    1,    1,        Key::columeNumber,     Key::columeNumber},
    {"lblGridWidth",      nullptr,             &S::gridWidth,       50,   30,       Key::tileWidth,        Key::tileWidth},
    {"lblGridHeight",     nullptr,             &S::gridHeight,      50,   30,       {},                    {}},
    {"lblGridThickness",  "slidGridThickness", &S::gridBorderWidth, 0,    0,        Key::tileBorderWidth,  Key::tileBorderWidth},
    {"lblHorizontalGaps", nullptr,             &S::columeSpace,     0,    0,        Key::horizontalGaps,   Key::verticalGaps},
    {"lblVerticalGaps",   nullptr,             &S::rowSpace,        0,    0,        Key::verticalGaps,     Key::horizontalGaps},
    {"lblBorderWidth",    "slidBorderWidth",   &S::borderWidth,     0,    0,        Key::borderWidth,      Key::borderWidth},
});
inline constexpr auto colors = std::to_array<Color>({
    // control              member               key                   when absent
    {"bgColorWell",         &S::backgroundColor, Key::backgroundColor, Qt::black},
    {"gridBorderColorWell", &S::gridBorderColor, Key::tileBorderColor, Qt::white},
});
inline constexpr auto switches = std::to_array<Switch>({
    // control      member            key
    {"chkShadowed", &S::gridShadowed, Key::drawShadow},
    {"chkAuto",     &S::autoHeight,   {}},
});
// clang-format on

} // namespace CollageFields
