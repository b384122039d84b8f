#pragma once

#include "collage/CollageFields.h"
#include "media/VXMediaInfoItem.h"

#include <QColor>

#include <array>
#include <cstdint>

/// What stands in the controls of the editor, in their own terms: whole numbers, colours, switches, a stretch of time.
/// The arrays are in the order of the tables of CollageFields. A value.
struct CollageForm {
    double dStart = 0.0;  ///< seconds
    double dLength = 0.0; ///< seconds
    std::array<std::int32_t, CollageFields::numbers.size()> numbers{};
    std::array<QColor, CollageFields::colors.size()> colors{};
    std::array<bool, CollageFields::switches.size()> switches{};
    std::int32_t slidBorderWidth =
        0; ///< the margin as its slider has it: the collage takes this, the defaults the field
};

/// The height of a tile of this width that has the movie's own shape, in whole pixels. What exceeds 32 bits wraps; a
/// movie without a width has no height either.
std::int32_t automaticGridHeight(const VXMediaInfoItem &movie, std::int32_t gridWidth);

/// The settings that the form means for this movie. Nothing is checked: the range may reach past the movie's end.
CollageSettings settingsFromForm(const CollageForm &form, const VXMediaInfoItem &movie);
