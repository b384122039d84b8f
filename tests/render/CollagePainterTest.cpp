#include "render/CollagePainter.h"

#include "render/TileSource.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr QRgb ground = qRgb(10, 20, 30);
constexpr QRgb frame = qRgb(255, 255, 0);
constexpr QRgb content = qRgb(200, 0, 0);

/// Every tile the same colour; remembers what was asked for.
class FlatTiles final : public TileSource {
public:
    QImage picture(std::int64_t tile, double seconds) override
    {
        times.push_back(seconds);
        if (tile == cancelAt) {
            *flag = true;
        }
        QImage image(64, 48, QImage::Format_RGB32);
        image.fill(content);
        return tile == missingTile ? QImage() : image;
    }

    std::vector<double> times;
    std::int64_t missingTile = -1;
    std::int64_t cancelAt = -1;
    CancelFlag *flag = nullptr;
};

class CollagePainterTest : public testing::Test {
protected:
    CollagePainterTest()
    {
        settings.rowNumber = 2;
        settings.columeNumber = 2;
        settings.gridWidth = 100.0;
        settings.gridHeight = 60.0;
        settings.borderWidth = 20.0;
        settings.columeSpace = settings.rowSpace = 10.0;
        settings.gridBorderWidth = 4.0;
        settings.gridBorderColor = frame;
        settings.backgroundColor = ground;
        settings.endPoint = 30.0;
        const QFont font = TextBlock::systemFont();
        styles = {{Qt::white, font}, {Qt::black, font}};
    }

    QImage paint(const QString &metadata = QString())
    {
        const CollagePainter painter(settings, styles, items, metadata);
        QImage canvas = painter.makeCanvas();
        tiles.flag = &cancelled;
        finished = painter.paint(canvas, tiles, cancelled);
        return canvas;
    }

    CollageSettings settings;
    CollageTextStyles styles;
    CollageTextItems items;
    FlatTiles tiles;
    CancelFlag cancelled = false;
    bool finished = false;
};

TEST_F(CollagePainterTest, GroundFramesAndPicturesAreSharpRectangles)
{
    const QImage canvas = paint();
    ASSERT_EQ(canvas.size(), QSize(250, 170));
    for (int row = 0; row < 2; ++row) {
        for (int column = 0; column < 2; ++column) {
            const QRect tile(20 + column * 110, 20 + row * 70, 100, 60);
            const QRect inner = tile.adjusted(4, 4, -4, -4);
            EXPECT_EQ(canvas.pixel(tile.topLeft()), frame);
            EXPECT_EQ(canvas.pixel(tile.bottomRight()), frame);
            EXPECT_EQ(canvas.pixel(inner.topLeft() - QPoint(1, 1)), frame);
            EXPECT_EQ(canvas.pixel(inner.topLeft()), content);
            EXPECT_EQ(canvas.pixel(inner.bottomRight()), content);
            EXPECT_EQ(canvas.pixel(tile.topLeft() - QPoint(1, 1)), ground);
            EXPECT_EQ(canvas.pixel(tile.bottomRight() + QPoint(1, 1)), ground);
        }
    }
    EXPECT_TRUE(finished);
    EXPECT_EQ(tiles.times, (std::vector{0.0, 10.0, 20.0, 30.0}));
}

TEST_F(CollagePainterTest, FractionalTilesHaveNoBlurredEdges)
{
    settings.gridHeight = 60.3;
    settings.gridWidth = 99.7;
    const QImage canvas = paint();
    for (int y = 0; y < canvas.height(); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const QRgb pixel = canvas.pixel(x, y);
            ASSERT_TRUE(pixel == ground || pixel == frame || pixel == content) << x << ", " << y;
        }
    }
}

TEST_F(CollagePainterTest, NoFrameLetsThePictureFillTheTileAndNoPictureLeavesTheFrame)
{
    tiles.missingTile = 1;
    QImage canvas = paint();
    EXPECT_EQ(canvas.pixel(180, 50), frame);
    settings.gridBorderWidth = 0.0;
    canvas = paint();
    EXPECT_EQ(canvas.pixel(20, 20), content);
    EXPECT_EQ(canvas.pixel(180, 50), ground);
}

TEST_F(CollagePainterTest, AGreyShadowFallsToTheRightAndDown)
{
    settings.gridShadowed = true;
    settings.backgroundColor = Qt::white;
    settings.gridBorderWidth = 0.0;
    const QImage canvas = paint();
    const auto darkness = [&canvas](int x, int y) { return 255 - qRed(canvas.pixel(x, y)); };
    // Blurred by a deviation of one and moved one pixel: half strength one pixel outside the lower right edges.
    EXPECT_NEAR(darkness(120, 50), 88, 3); // 127 * 0.69
    EXPECT_NEAR(darkness(121, 50), 39, 3); // 127 * 0.31
    EXPECT_NEAR(darkness(60, 80), 88, 3);
    EXPECT_NEAR(darkness(19, 50), 8, 3); // 127 * 0.06
    EXPECT_EQ(darkness(125, 50), 0);
    EXPECT_EQ(darkness(15, 50), 0);
}

TEST_F(CollagePainterTest, AStampsShadowStaysOnForTheTilesAfterIt)
{
    items.metadataBits = 1;
    settings.backgroundColor = Qt::black;
    const QImage canvas = paint();
    const auto glow = [&canvas](int x, int y) { return qRed(canvas.pixel(x, y)); };
    EXPECT_EQ(glow(120, 50), 0); // first tile: painted before any stamp
    EXPECT_GT(glow(230, 50), 100);
    EXPECT_GT(glow(120, 120), 100);

    settings.gridShadowed = true; // each tile sets its own first
    EXPECT_NEAR(qRed(paint().pixel(230, 50)), 88, 3);
}

TEST_F(CollagePainterTest, StampsStandWhereThePositionSays)
{
    items.metadataBits = 1;
    settings.gridShadowed = true; // no white glow around the tiles
    settings.gridBorderWidth = 0.0;
    const auto stampedAt = [](const QImage &canvas, QPoint corner) {
        const QImage text = canvas.copy(QRect(corner, QSize(55, 16)));
        int dark = 0;
        for (int y = 0; y < text.height(); ++y) {
            for (int x = 0; x < text.width(); ++x) {
                dark += qRed(text.pixel(x, y)) < 60 ? 1 : 0;
            }
        }
        return dark > 30;
    };
    const std::vector<QPoint> corners{{60, 60}, {20, 60}, {60, 20}, {20, 20}};
    for (std::size_t position = 0; position < corners.size(); ++position) {
        items.stampPosition = static_cast<std::int64_t>(position);
        const QImage canvas = paint();
        EXPECT_TRUE(stampedAt(canvas, corners[position])) << position;
        EXPECT_FALSE(stampedAt(canvas, corners[3 - position])) << position; // the corner across
    }
    settings.borderWidth = 40.0;
    items.stampPosition = 7;
    EXPECT_TRUE(stampedAt(paint(), {0, 0}));
}

TEST_F(CollagePainterTest, TheTextBlockPushesTheTilesDown)
{
    const QString text = QStringLiteral("Duration: 00:00:30\nFPS: 25\n");
    const CollagePainter painter(settings, styles, items, text);
    const int textHeight = static_cast<int>(painter.layout().textRect().height());
    ASSERT_GT(textHeight, 20);
    const QImage canvas = paint(text);
    ASSERT_EQ(canvas.height(), 170 + textHeight);
    EXPECT_EQ(canvas.pixel(20, 20 + textHeight), frame);
    EXPECT_EQ(canvas.pixel(20, 19 + textHeight), ground);

    settings.rowNumber = 0;
    tiles.times.clear();
    EXPECT_FALSE(paint(text).isNull());
    EXPECT_TRUE(tiles.times.empty());
}

TEST_F(CollagePainterTest, StopsBeforeTheNextTileWhenCancelled)
{
    tiles.cancelAt = 2;
    paint();
    EXPECT_FALSE(finished);
    EXPECT_EQ(tiles.times.size(), 3U);
}

TEST_F(CollagePainterTest, SettingsOutOfEveryRangeStayInBounds)
{
    constexpr double huge = 2147483647.0;
    struct Case {
        const char *what;
        double tile, gap, margin, frame;
    };
    for (const Case &odd : {Case{"picture far over the edge", 2.0 * huge, 0.0, -huge + 100.0, 3.0},
                            Case{"frame thicker than the tile", 100.0, 10.0, 20.0, huge},
                            Case{"picture larger than its tile", 100.0, 10.0, 20.0, -huge},
                            Case{"overlapping tiles", 200.0, -150.0, 0.0, 3.0}}) {
        settings.rowNumber = settings.columeNumber = odd.tile > 1000.0 ? 1 : 2;
        settings.gridWidth = settings.gridHeight = odd.tile;
        settings.columeSpace = settings.rowSpace = odd.gap;
        settings.borderWidth = odd.margin;
        settings.gridBorderWidth = odd.frame;
        settings.gridShadowed = true;
        items.metadataBits = 1;
        EXPECT_FALSE(paint(QStringLiteral("text\n")).isNull()) << odd.what;
    }
    settings.gridWidth = 1e6;
    EXPECT_TRUE(CollagePainter(settings, styles, items, QString()).makeCanvas().isNull());
}

} // namespace
