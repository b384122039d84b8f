#include "collage/CollageForm.h"
#include "collage/DefaultParameters.h"
#include "media/VXMediaInfoItem.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace Qt::StringLiterals;

struct DefaultParametersTest : testing::Test {
    DefaultParametersTest() { movie.pixWidth = 1920, movie.pixHeight = 1080; }
    CollageSettings settings() const { return DefaultParameters::settingsOfNewMovie(defaults, movie); }

    ScratchFolder folder;
    UserDefaults defaults{folder.path("settings.json")};
    VXMediaInfoItem movie;
};

TEST_F(DefaultParametersTest, AnEmptyStoreGivesZeroesNotTheInitialValues)
{
    EXPECT_EQ(settings(), (CollageSettings{.borderWidth = 0,
                                           .backgroundColor = Qt::black,
                                           .gridBorderWidth = 0,
                                           .gridBorderColor = Qt::white,
                                           .columeSpace = 0,
                                           .rowSpace = 0,
                                           .gridWidth = 0,
                                           .gridHeight = 0,
                                           .rowNumber = 0,
                                           .columeNumber = 0}));
}

TEST_F(DefaultParametersTest, NumbersAreWholeAndTheHeightIsExactlyTheMovies)
{
    defaults.setText("DefaultTileWidth", u"301.9"_s);
    defaults.setText("DefultBkgColor", u"#280a141E"_s);
    defaults.setText("DefaultTileBorderColor", u"no colour"_s);
    EXPECT_EQ(settings().gridWidth, 301.0);
    EXPECT_EQ(settings().gridHeight, 169.3125);
    EXPECT_EQ(settings().backgroundColor.rgba(), qRgba(10, 20, 30, 40));
    EXPECT_EQ(settings().gridBorderColor, QColor(Qt::white));
}

TEST_F(DefaultParametersTest, OnlyMoviesOverFourSecondsLeaveOutTheirEnds)
{
    for (const auto &[duration, start, end] : {std::tuple{4.0, 0.0, 0.0}, {4.5, 2.0, 2.5}}) {
        movie.duration = duration;
        EXPECT_EQ(std::pair(settings().startPoint, settings().endPoint), std::pair(start, end)) << duration;
    }
}

TEST(AutomaticGridHeight, IsWholePixelsOfTheMoviesOwnShape)
{
    VXMediaInfoItem movie;
    const std::array<int, 4> cases[] = {{1920, 1080, 320, 180},
                                        {640, 360, -301, -169},
                                        {0, 360, 301, 0},
                                        {2, INT32_MAX, INT32_MAX, 0}, // (2^31 - 1)^2 wraps to 1
                                        {1, 1 << 16, 1 << 15, 1 << 31}};
    for (const auto &[width, height, gridWidth, gridHeight] : cases) {
        movie.pixWidth = width;
        movie.pixHeight = height;
        EXPECT_EQ(automaticGridHeight(movie, gridWidth), gridHeight) << width << ' ' << height << ' ' << gridWidth;
    }
}
