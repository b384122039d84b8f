#include "render/CollageLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

CollageSettings grid(std::int32_t rows, std::int32_t columns)
{
    CollageSettings settings;
    settings.rowNumber = rows;
    settings.columeNumber = columns;
    return settings;
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
    const QRectF tile = layout.tileRect(1, 2);
    EXPECT_EQ(tile, QRectF(640.0, 255.75, 300.0, 168.75));
    EXPECT_EQ(layout.pictureRect(tile), QRectF(643.0, 258.75, 294.0, 162.75));
}

TEST(CollageLayout, StampsStandAtFixedDistancesFromTheChosenCorner)
{
    const QRectF picture(100.0, 200.0, 300.0, 150.0);
    EXPECT_EQ(CollageLayout::stampPoint(picture, 0), QPointF(340.0, 330.0));
    EXPECT_EQ(CollageLayout::stampPoint(picture, 1), QPointF(100.0, 330.0));
    EXPECT_EQ(CollageLayout::stampPoint(picture, 2), QPointF(340.0, 200.0));
    EXPECT_EQ(CollageLayout::stampPoint(picture, 3), QPointF(100.0, 200.0));
    for (const std::int64_t other : {std::int64_t{-1}, std::int64_t{7}, std::numeric_limits<std::int64_t>::max()}) {
        EXPECT_EQ(CollageLayout::stampPoint(picture, other), QPointF(0.0, 0.0)) << other;
    }
}

TEST(CollageLayout, TimesRunFromTheFirstTileToTheLast)
{
    struct Case {
        std::int32_t rows, columns;
        double start, end;
        std::int64_t tile;
        double time;
    };
    for (const Case &sample :
         {Case{3, 4, 10.0, 120.0, 0, 10.0}, Case{3, 4, 10.0, 120.0, 5, 60.0}, Case{3, 4, 10.0, 120.0, 11, 120.0},
          Case{1, 1, 5.0, 99.0, 0, 5.0}, Case{1, 2, 4.0, 9.0, 1, 9.0}, Case{2, 2, 0.0, 0.0, 3, 0.0}}) {
        CollageSettings settings = grid(sample.rows, sample.columns);
        settings.startPoint = sample.start;
        settings.endPoint = sample.end;
        EXPECT_DOUBLE_EQ(CollageLayout(settings).tileTime(sample.tile), sample.time)
            << sample.rows << " x " << sample.columns << ", tile " << sample.tile;
    }
}

TEST(CollageLayout, AnyCountIsAllowed)
{
    EXPECT_EQ(CollageLayout(grid(0, 3)).tileCount(), 0);
    EXPECT_EQ(CollageLayout(grid(-2, -3)).tileCount(), 0);
    EXPECT_EQ(CollageLayout(grid(INT32_MAX, INT32_MAX)).tileCount(), 4'611'686'014'132'420'609);
    EXPECT_EQ(CollageLayout(grid(0, 3)).pixelSize(), QSize(948, 36));
}

TEST(CollageLayout, RefusesCanvasesThatCannotExist)
{
    const double nan = std::nan("");
    struct Case {
        const char *what;
        double width, height, margin;
        bool possible;
    };
    for (const Case &canvas :
         {Case{"longest side", 65'500.0, 100.0, 0.0, true}, Case{"too wide", 65'501.0, 100.0, 0.0, false},
          Case{"too high", 100.0, 65'501.0, 0.0, false}, Case{"too many pixels", 25'000.0, 25'000.0, 0.0, false},
          Case{"10^12 pixels", 1e6, 1e6, 0.0, false}, Case{"empty", 0.0, 0.0, 0.0, false},
          Case{"negative", 10.0, 10.0, -100.0, false}, Case{"not a number", nan, 10.0, 0.0, false},
          Case{"endless", INFINITY, 10.0, 0.0, false}}) {
        CollageSettings settings = grid(1, 1);
        settings.gridWidth = canvas.width;
        settings.gridHeight = canvas.height;
        settings.borderWidth = canvas.margin;
        EXPECT_EQ(CollageLayout(settings).isPossible(), canvas.possible) << canvas.what;
        EXPECT_EQ(CollageLayout(settings).pixelSize().isValid(), canvas.possible) << canvas.what;
    }
}

} // namespace
