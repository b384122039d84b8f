#include "render/CollageLayout.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(CollageLayout, RefusesCanvasesThatCannotExist)
{
    EXPECT_EQ(CollageLayout({.rowNumber = INT32_MAX, .columeNumber = INT32_MAX}).tileCount(),
              4'611'686'014'132'420'609);
    CollageSettings settings{.rowNumber = 1, .columeNumber = 1};
    settings.borderWidth = 0.0;
    const std::tuple<double, double, bool> sizes[] = {
        {65'500, 100, true}, {65'501, 100, false},        {100, 65'501, false}, {25e3, 25e3, false},
        {0, 0, false},       {std::nan(""), 10.0, false}, {HUGE_VAL, 10, false}};
    for (const auto &[width, height, possible] : sizes) {
        settings.gridWidth = width;
        settings.gridHeight = height;
        EXPECT_EQ(CollageLayout(settings).isPossible(), possible) << width << " x " << height;
        EXPECT_EQ(CollageLayout(settings).pixelSize().isValid(), possible) << width << " x " << height;
    }
}
