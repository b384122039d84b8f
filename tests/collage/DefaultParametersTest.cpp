#include "collage/DefaultParameters.h"

#include "media/VXMediaInfoItem.h"
#include "platform/ColorArchive.h"
#include "platform/UserDefaults.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class DefaultParametersTest : public testing::Test {
protected:
    DefaultParametersTest()
    {
        movie.pixWidth = 1920;
        movie.pixHeight = 1080;
    }

    CollageSettings settings() const { return DefaultParameters::settingsOfNewMovie(defaults, movie); }

    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("store.ini"))};
    VXMediaInfoItem movie;
};

TEST_F(DefaultParametersTest, AnEmptyStoreGivesZeroesNotTheInitialValues)
{
    CollageSettings expected;
    expected.borderWidth = expected.gridBorderWidth = expected.columeSpace = expected.rowSpace = 0.0;
    expected.gridWidth = expected.gridHeight = 0.0;
    expected.rowNumber = expected.columeNumber = 0;
    expected.backgroundColor = Qt::black;
    expected.gridBorderColor = Qt::white;
    EXPECT_EQ(settings(), expected);
}

TEST_F(DefaultParametersTest, EachKeyReachesItsField)
{
    defaults.setInteger("DefaultRowNumber", 5);
    defaults.setInteger("DefaultColumeNumber", 7);
    defaults.setInteger("DefaultTileWidth", 320);
    defaults.setInteger("DefaultTileBorderWidth", 6);
    defaults.setInteger("DefaultHGaps", 10);
    defaults.setInteger("DefaultVGaps", 2);
    defaults.setText("DefaultBorderWidth", QStringLiteral("12.9"));
    defaults.setBool("DefaultDrawShadow", true);
    defaults.setData("DefultBkgColor", ColorArchive::archive(QColor(10, 20, 30, 40)));
    defaults.setData("DefaultTileBorderColor", ColorArchive::archive(Qt::red));

    CollageSettings expected;
    expected.rowNumber = 5;
    expected.columeNumber = 7;
    expected.gridWidth = 320.0;
    expected.gridHeight = 180.0;
    expected.gridBorderWidth = 6.0;
    expected.rowSpace = 10.0;
    expected.columeSpace = 2.0;
    expected.borderWidth = 12.0;
    expected.gridShadowed = true;
    expected.backgroundColor = settings().backgroundColor;
    expected.gridBorderColor = settings().gridBorderColor;
    EXPECT_EQ(settings(), expected);
    EXPECT_EQ(settings().backgroundColor.rgba(), qRgba(10, 20, 30, 40));
    EXPECT_EQ(settings().gridBorderColor.rgba(), qRgba(255, 0, 0, 255));
}

TEST_F(DefaultParametersTest, BytesThatAreNoColourCountAsAbsent)
{
    defaults.setData("DefultBkgColor", "no colour");
    defaults.setText("DefaultTileBorderColor", QStringLiteral("red"));
    EXPECT_EQ(settings().backgroundColor, QColor(Qt::black));
    EXPECT_EQ(settings().gridBorderColor, QColor(Qt::white));
}

TEST_F(DefaultParametersTest, TileHeightFollowsTheMovieWithoutRounding)
{
    struct Case {
        int width;
        int height;
        int tileWidth;
        double tileHeight;
    };
    for (const Case &shape : {Case{720, 576, 300, 240.0}, Case{640, 360, 301, 169.3125}, Case{1080, 1920, 90, 160.0}}) {
        movie.pixWidth = shape.width;
        movie.pixHeight = shape.height;
        defaults.setInteger("DefaultTileWidth", shape.tileWidth);
        EXPECT_DOUBLE_EQ(settings().gridHeight, shape.tileHeight) << shape.width << " x " << shape.height;
    }
}

TEST_F(DefaultParametersTest, OnlyMoviesOverFourSecondsLeaveOutTheirEnds)
{
    struct Case {
        double duration;
        double start;
        double end;
    };
    for (const Case &clip :
         {Case{0.0, 0.0, 0.0}, Case{4.0, 0.0, 0.0}, Case{4.5, 2.0, 2.5}, Case{3600.0, 2.0, 3598.0}}) {
        movie.duration = clip.duration;
        EXPECT_DOUBLE_EQ(settings().startPoint, clip.start) << clip.duration;
        EXPECT_DOUBLE_EQ(settings().endPoint, clip.end) << clip.duration;
    }
}

} // namespace
