#pragma once

#include "collage/CollageSettings.h"
#include "media/VXMediaInfoItem.h"

#include <QColor>

#include <cstdint>

/// What stands in the controls of the editor, in their own terms: whole numbers, colours, switches, a stretch of time.
/// A value.
struct CollageForm {
    double dStart = 0.0;  ///< seconds
    double dLength = 0.0; ///< seconds
    QColor backgroundColor;
    std::int32_t rowNumber = 0;
    std::int32_t columeNumber = 0;
    QColor gridBorderColor;
    std::int32_t gridBorderWidth = 0;
    std::int32_t rowSpace = 0;
    std::int32_t columeSpace = 0;
    std::int32_t slidBorderWidth = 0; ///< the margin as its slider has it
    std::int32_t lblBorderWidth = 0;  ///< the margin as its field has it
    bool gridShadowed = false;
    bool autoHeight = false;
    std::int32_t gridWidth = 0;
    std::int32_t gridHeight = 0; ///< used unless autoHeight
};

/// The height of a tile of this width that has the movie's own shape, in whole pixels. What exceeds 32 bits wraps; a
/// movie without a width has no height either.
std::int32_t automaticGridHeight(const VXMediaInfoItem &movie, std::int32_t gridWidth);

/// The settings that the form means for this movie. Nothing is checked: the range may reach past the movie's end.
CollageSettings settingsFromForm(const CollageForm &form, const VXMediaInfoItem &movie);
