#include "render/CollagePainter.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

constexpr QRgb ground = qRgb(10, 20, 30);
constexpr QRgb frame = qRgb(255, 255, 0);
constexpr QRgb content = qRgb(200, 0, 0);

/// Two by two tiles of 100 x 60 with frames of 4, gaps of 10 and 7 and a margin of 20; every picture one colour.
struct CollagePainterTest : testing::Test {
    CollagePainterTest() { settings = {20.0, ground, 4.0, frame, 10.0, 7.0, 100.0, 60.0, 2, 2, 0.0, 30.0}; }
    TilePicture picture(std::int64_t tile, double seconds)
    {
        times.push_back(seconds);
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(content);
        return {tile == missingTile ? QImage() : image, realTime};
    }
    QImage paint(const QString &metadata = QString())
    {
        const QFont font = TextBlock::systemFont();
        const CollagePainter painter(settings, {{Qt::white, font}, {Qt::black, font}}, items, metadata);
        QImage canvas = painter.makeCanvas();
        textHeight = static_cast<int>(painter.layout().textRect().height());
        finished =
            !canvas.isNull() && painter.paint(canvas, std::bind_front(&CollagePainterTest::picture, this), cancelled);
        return canvas;
    }

    CollageSettings settings;
    CollageTextItems items;
    std::vector<double> times;
    std::int64_t missingTile = -1;
    std::optional<double> realTime; ///< of all pictures
    CancelFlag cancelled = false;
    bool finished = false;
    int textHeight = 0;
};

TEST_F(CollagePainterTest, GroundFramesAndPicturesAreSharpRectanglesBelowTheText)
{
    for (const QString &text : {QString(), u"Duration: 00:00:30\nFPS: 25\n"_s}) {
        times.clear();
        const QImage canvas = paint(text);
        ASSERT_EQ(canvas.size(), QSize(250, 167 + textHeight));
        const QImage heading = canvas.copy(20, 20, 210, textHeight);
        QImage empty = heading;
        empty.fill(ground);
        EXPECT_EQ(heading == empty, text.isEmpty());
        for (const QPoint tile : {QPoint(20, 20), QPoint(130, 20), QPoint(20, 87), QPoint(130, 87)}) {
            const QRect outer = QRect(tile, QSize(100, 60)).translated(0, textHeight);
            const QRect inner = outer.adjusted(4, 4, -4, -4);
            const QPoint one(1, 1);
            EXPECT_EQ(canvas.pixel(outer.topLeft() - one), ground);
            EXPECT_EQ(canvas.pixel(outer.topLeft()), frame);
            EXPECT_EQ(canvas.pixel(inner.topLeft() - one), frame);
            EXPECT_EQ(canvas.pixel(inner.topLeft()), content);
            EXPECT_EQ(canvas.pixel(inner.bottomRight()), content);
            EXPECT_EQ(canvas.pixel(outer.bottomRight()), frame);
            EXPECT_EQ(canvas.pixel(outer.bottomRight() + one), ground);
        }
        EXPECT_TRUE(finished);
        EXPECT_EQ(times, (std::vector{0.0, 10.0, 20.0, 30.0}));
    }
    EXPECT_GT(textHeight, 20);
}

TEST_F(CollagePainterTest, FractionalTilesHaveNoBlurredEdges)
{
    settings.gridHeight = 60.3;
    settings.gridWidth = 99.7;
    const QImage canvas = paint();
    for (int at = 0; at < canvas.width() * canvas.height(); ++at) {
        const QRgb pixel = canvas.pixel(at % canvas.width(), at / canvas.width());
        ASSERT_TRUE(pixel == ground || pixel == frame || pixel == content) << at;
    }
}

TEST_F(CollagePainterTest, NoFrameLetsThePictureFillTheTileAndNoPictureLeavesTheFrame)
{
    missingTile = 1;
    EXPECT_EQ(paint().pixel(180, 50), frame);
    settings.gridBorderWidth = 0.0;
    EXPECT_EQ(paint().pixel(20, 20), content);
    EXPECT_EQ(paint().pixel(180, 50), ground);
}

TEST_F(CollagePainterTest, AStampsShadowStaysOnForTheTilesAfterIt)
{
    items.metadataBits = 1;
    settings.backgroundColor = Qt::black;
    const QImage canvas = paint();
    EXPECT_EQ(qRed(canvas.pixel(120, 50)), 0); // the first tile: painted before any stamp
    EXPECT_GT(qRed(canvas.pixel(230, 50)), 100);
    settings.gridShadowed = true; // each tile sets its own first
    // White on black gives grey, 128. Blurred by a deviation of one and moved one pixel, the edge has this share of it.
    for (const QPoint &edge : {QPoint(230, 50), QPoint(170, 80)}) {
        EXPECT_NEAR(qRed(paint().pixel(edge)), 128 * 0.69, 3) << edge.x();
    }
}

TEST_F(CollagePainterTest, StampsStandWhereThePositionSays)
{
    items.metadataBits = 1;
    settings.gridBorderWidth = 0.0;
    settings.borderWidth = 70.0;
    settings.gridWidth = 160.0;
    settings.backgroundColor = content;
    const std::vector<QPoint> places{{170, 110}, {70, 110}, {170, 70}, {70, 70}, {0, 0}};
    for (std::size_t position = 0; position < places.size(); ++position) {
        items.stampPosition = static_cast<std::int64_t>(position);
        const QImage canvas = paint();
        for (const QPoint &place : places) {
            int ink = 0;
            for (int at = 0; at < 40 * 14; ++at) {
                ink += qRed(canvas.pixel(place + QPoint(at % 40, at / 40))) < 60 ? 1 : 0;
            }
            EXPECT_EQ(ink > 10, place == places[position]) << position << " at " << place.x() << ", " << place.y();
        }
    }
}

TEST_F(CollagePainterTest, StampsTellTheSecondThatThePictureIsReallyFrom)
{
    items.metadataBits = 1;
    settings.startPoint = settings.endPoint = 12.0;
    const QImage asked = paint();
    realTime = 13.99;
    const QImage found = paint();
    settings.startPoint = settings.endPoint = 13.0;
    realTime.reset();
    EXPECT_NE(found, asked);
    EXPECT_EQ(found, paint());
}

TEST_F(CollagePainterTest, SettingsOutOfEveryRangeStayInBounds)
{
    constexpr double huge = 2147483647.0;
    items.metadataBits = 1;
    for (const auto &[count, tile, gap, margin, border] : {std::tuple{1, 2.0 * huge, 0.0, -huge + 100.0, 3.0},
                                                           {2, 100.0, 10.0, 20.0, huge},
                                                           {2, 100.0, 10.0, 20.0, -huge},
                                                           {2, 200.0, -150.0, 0.0, 3.0},
                                                           {0, 100.0, 10.0, 20.0, 3.0}}) {
        settings = {margin, ground, border, frame, gap, gap, tile, tile, count, count, 0.0, 30.0, true};
        paint(u"text\n"_s);
        EXPECT_TRUE(finished) << tile << ", " << gap << ", " << margin << ", " << border;
    }
    settings.borderWidth = 1e6;
    EXPECT_TRUE(paint().isNull());
}
