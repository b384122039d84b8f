#include "render/CollagePreview.h"

#include "render/CollageLayout.h"
#include "render/TextBlock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

constexpr QRgb ground = qRgb(10, 20, 30);
constexpr QRgb frame = qRgb(255, 255, 0);
constexpr QRgb grey = qRgb(128, 128, 128);
constexpr QRgb mark = qRgb(200, 0, 0);

struct CollagePreviewTest : testing::Test {
    CollagePreviewTest()
    {
        settings.gridWidth = 60.0;
        settings.gridHeight = 40.0;
        settings.backgroundColor = ground;
        settings.gridBorderColor = frame;
        placeholder.fill(mark);
    }
    QImage render(QSize size = {352, 224}, const QString &text = QString(), qreal ratio = 1.0) const
    {
        return renderCollagePreview(size, ratio, settings, text, placeholder);
    }

    CollageSettings settings;
    QImage placeholder{16, 16, QImage::Format_ARGB32_Premultiplied};
};

TEST_F(CollagePreviewTest, ASmallCollageIsCentredAtItsOwnSize)
{
    const QImage image = render(); // 228 x 124 at 62, 50
    const std::tuple<int, int, QRgb> pixels[] = {
        {61, 112, 0},    {62, 50, ground},  {289, 173, ground}, {84, 72, frame},
        {85, 73, grey},  {139, 106, frame}, {142, 70, ground},  {82 + 128, 70 + 44, frame},
        {104, 82, mark}, {119, 97, mark},   {120, 98, grey}};
    for (const auto &[x, y, color] : pixels) {
        EXPECT_EQ(image.pixel(x, y), color) << x << ", " << y;
    }
}

TEST_F(CollagePreviewTest, ALargeCollageShrinksAndTheTextKeepsItsRoom)
{
    settings.gridWidth = 300.0;
    settings.gridHeight = 200.0;
    const QString text = u"one\ntwo\nthree\nfour\n"_s;
    const TextBlock block(text, TextBlock::systemFont(), CollageLayout(settings).textBox());
    const double high = 444.0 + block.size().height();
    const double rate = std::max(948.0 / 352.0, high / 224.0);
    const double top = (224.0 - high / rate) / 2.0;
    const QImage image = render({352, 224}, text);
    EXPECT_EQ(qAlpha(image.pixel(176, static_cast<int>(top) - 1)), 0);
    EXPECT_EQ(image.pixel(176, static_cast<int>(top) + 2), ground);
    const double firstTile = top + (block.size().height() + 20.0) / rate;
    EXPECT_EQ(image.pixel(20, static_cast<int>(firstTile) - 1), ground);
    EXPECT_EQ(image.pixel(20, static_cast<int>(firstTile) + 3), grey);
}

TEST_F(CollagePreviewTest, TwicePixelsShowTwiceTheDetail)
{
    const QImage image = render({352, 224}, QString(), 2.0);
    EXPECT_EQ(image.size(), QSize(704, 448));
    EXPECT_EQ(image.pixel(2 * 85 - 1, 2 * 73), frame);
    EXPECT_EQ(image.pixel(2 * 85, 2 * 73), grey);
    EXPECT_EQ(previewPlaceholder(2.0).size(), QSize(32, 32));
}

TEST_F(CollagePreviewTest, AnySettingsAreDrawnInNoTime)
{
    constexpr double huge = std::numeric_limits<double>::max();
    /// What, rows, columns; tile, gap, margin, frame; the colour in the middle, where it is certain.
    using Case = std::tuple<const char *, std::int32_t, std::int32_t, double, double, double, double, QRgb>;
    for (const auto &[what, rows, columns, tile, gap, margin, border, centre] :
         {Case{"no rows", 0, 3, 60.0, 4.0, 20.0, 3.0, ground}, Case{"negative", -5, -5, 60.0, 4.0, 50.0, 3.0, 0},
          Case{"10^18 tiles", INT32_MAX, INT32_MAX, 60.0, 4.0, 20.0, 3.0, grey},
          Case{"10^18 tiles in one place", INT32_MAX, INT32_MAX, 60.0, -60.0, 100.0, 3.0, grey},
          Case{"10^18 tiles over each other", INT32_MAX, INT32_MAX, 300.0, -299.0, -1e9, 0.0, 0},
          Case{"10^18 tiles backwards", INT32_MAX, INT32_MAX, 300.0, -302.0, 1e9, 0.0, 0},
          Case{"huge", 2, 3, huge, huge, huge, huge, 0}, Case{"no number", 2, 3, NAN, 4.0, 20.0, 3.0, 0},
          Case{"inside out", 1, 1, -60.0, 4.0, 20.0, 3.0, 0}, Case{"all frame", 1, 1, 60.0, 0.0, 0.0, 1e9, frame}}) {
        settings = {margin, ground, border, frame, gap, gap, tile, tile, rows, columns};
        placeholder.fill(Qt::transparent);
        const QRgb pixel = render({352, 224}, u"text\n"_s).pixel(176, 112);
        EXPECT_TRUE(centre == 0 || pixel == centre) << what;
    }
}
