#include "render/CollageLayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

CollageSettings grid(std::int32_t rows, std::int32_t columns, double start = 0.0, double end = 0.0)
{
    return {.rowNumber = rows, .columeNumber = columns, .startPoint = start, .endPoint = end};
}

TEST(CollageLayout, TilesStandBelowTheTextWithTheirOwnGaps)
{
    CollageSettings settings = grid(2, 3);
    settings.columeSpace = 10.0;
    settings.rowSpace = 7.0;
    settings.gridHeight = 168.75;
    const CollageLayout layout = CollageLayout(settings).withText({120.0, 60.0});
    EXPECT_EQ(layout.textBox(), QSizeF(960.0, 384.5));
    EXPECT_EQ(layout.canvasSize(), QSizeF(960.0, 444.5));
    EXPECT_EQ(layout.pixelSize(), QSize(960, 445));
    EXPECT_EQ(layout.textRect(), QRectF(20.0, 20.0, 120.0, 60.0));
    EXPECT_EQ(layout.tileRect(1, 2), QRectF(640.0, 255.75, 300.0, 168.75));
    EXPECT_EQ(layout.pictureRect(layout.tileRect(1, 2)), QRectF(643.0, 258.75, 294.0, 162.75));
}

TEST(CollageLayout, StampsStandAtFixedDistancesFromTheChosenCorner)
{
    for (const auto &[position, point] : {std::pair<std::int64_t, QPointF>{0, {340, 330}},
                                          {1, {100, 330}},
                                          {2, {340, 200}},
                                          {3, {100, 200}},
                                          {-1, {0, 0}},
                                          {7, {0, 0}},
                                          {INT64_MAX, {0, 0}}}) {
        EXPECT_EQ(CollageLayout::stampPoint({100.0, 200.0, 300.0, 150.0}, position), point) << position;
    }
}

TEST(CollageLayout, TimesRunFromTheFirstTileToTheLast)
{
    for (const auto &[settings, tile, time] : {std::tuple{grid(3, 4, 10, 120), 0, 10.0},
                                               {grid(3, 4, 10, 120), 5, 60.0},
                                               {grid(3, 4, 10, 120), 11, 120.0},
                                               {grid(1, 1, 5, 99), 0, 5.0},
                                               {grid(1, 2, 4, 9), 1, 9.0},
                                               {grid(2, 2, 0, 0), 3, 0.0}}) {
        EXPECT_DOUBLE_EQ(CollageLayout(settings).tileTime(tile), time) << settings.rowNumber << ", tile " << tile;
    }
}

TEST(CollageLayout, AnyCountIsAllowed)
{
    EXPECT_EQ(CollageLayout(grid(-2, -3)).tileCount(), 0);
    EXPECT_EQ(CollageLayout(grid(INT32_MAX, INT32_MAX)).tileCount(), 4'611'686'014'132'420'609);
    EXPECT_EQ(CollageLayout(grid(0, 3)).pixelSize(), QSize(948, 36));
}

TEST(CollageLayout, RefusesCanvasesThatCannotExist)
{
    for (const auto &[width, height, possible] : {std::tuple{65'500.0, 100.0, true},
                                                  {65'501.0, 100.0, false},
                                                  {100.0, 65'501.0, false},
                                                  {25e3, 25e3, false},
                                                  {1e6, 1e6, false},
                                                  {0.0, 0.0, false},
                                                  {10.0, -10.0, false},
                                                  {std::nan(""), 10.0, false},
                                                  {HUGE_VAL, 10.0, false}}) {
        CollageSettings settings = grid(1, 1);
        settings.gridWidth = width;
        settings.gridHeight = height;
        settings.borderWidth = 0.0;
        EXPECT_EQ(CollageLayout(settings).isPossible(), possible) << width << " x " << height;
        EXPECT_EQ(CollageLayout(settings).pixelSize().isValid(), possible) << width << " x " << height;
    }
}

} // namespace
