#pragma once

#include "collage/CollageSettings.h"

#include <cstdint>

/// The whole numbers of a collage that are typed in the editor.
enum class CollageNumber {
    Rows,
    Columes,
    GridWidth,
    GridHeight,
    GridThickness,
    HorizontalGaps,
    VerticalGaps,
    BorderWidth,
};

/// What may be typed for each of them, and where it goes.
namespace CollageNumbers {

/// Whether the value shows in the collage while it is being typed. Tiles wait for 50 pixels, so that the first digits
/// of "300" do not make the preview jump.
bool isShown(CollageNumber number, std::int32_t value);
/// Whether the value may stay in its field.
bool isAccepted(CollageNumber number, std::int32_t value);
/// Whether it is a side of a tile.
bool isGridSize(CollageNumber number);
/// Puts the value into its place of the settings, and into no other.
void write(CollageSettings &settings, CollageNumber number, std::int32_t value);

} // namespace CollageNumbers
