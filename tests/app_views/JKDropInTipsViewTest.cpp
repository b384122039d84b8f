#include "app/JKDropInTipsView.h"

#include <gtest/gtest.h>

namespace {

constexpr QRgb ground = qRgb(236, 237, 235);
constexpr QRgb ink = qRgb(162, 164, 166);

QImage shown(JKDropInTipsView &view)
{
    return view.grab().toImage();
}

/// The rows in which anything but the ground shows, from the first to the last.
QRect inkedBelow(const QImage &image, int top)
{
    QRect inked;
    for (int y = top; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != ground) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    return inked;
}

TEST(JKDropInTipsView, AnArrowPointsDownInADashedSquareInTheMiddle)
{
    JKDropInTipsView view;
    view.resize(300, 200); // the square: 100 to 200, 50 to 150
    const QImage image = shown(view);
    const auto at = [&image](int x, int y) { return image.pixel(x, y); };
    EXPECT_EQ(at(0, 0), ground);
    EXPECT_EQ(at(150, 76), ink);     // stem, from 75
    EXPECT_EQ(at(150, 73), ground);  // above it
    EXPECT_EQ(at(142, 90), ink);     // 18 wide
    EXPECT_EQ(at(140, 90), ground);  //
    EXPECT_EQ(at(128, 101), ink);    // head, 50 wide, from 100
    EXPECT_EQ(at(128, 98), ground);  //
    EXPECT_EQ(at(150, 122), ink);    // tip at 125
    EXPECT_EQ(at(150, 127), ground); //
    EXPECT_EQ(at(130, 120), ground); // beside the tip

    int drawn = 0;
    for (int y = 70; y < 130; ++y) {
        drawn += at(100, y) == ink ? 1 : 0;
    }
    EXPECT_GT(drawn, 15); // the left side is neither empty nor solid
    EXPECT_LT(drawn, 45);
}

TEST(JKDropInTipsView, ItsColoursFollowTheHighlight)
{
    JKDropInTipsView view;
    view.resize(300, 200);
    view.setBHighlighted(true);
    EXPECT_EQ(shown(view).pixel(0, 0), qRgb(117, 187, 231));
    EXPECT_EQ(shown(view).pixel(150, 90), qRgb(247, 249, 251));
    view.setClrHlBg(Qt::red);
    EXPECT_EQ(shown(view).pixel(0, 0), qRgb(255, 0, 0));
    view.setDefaultValue();
    EXPECT_EQ(shown(view).pixel(0, 0), ground);
}

TEST(JKDropInTipsView, TheTextStandsBelowTheSquareAndIsNeverCut)
{
    JKDropInTipsView view;
    view.resize(600, 400);
    view.setStrPromot(QStringLiteral("Drop movies or folders here"));
    const QRect line = inkedBelow(shown(view), 255);
    EXPECT_GE(line.top(), 270); // 20 below
    EXPECT_LE(line.top(), 276);
    EXPECT_NEAR(line.center().x(), 300, 3);

    view.resize(140, 400);
    const QRect lines = inkedBelow(shown(view), 255);
    EXPECT_GT(lines.height(), 2 * line.height());
    EXPECT_GE(lines.left(), 10);
    EXPECT_LE(lines.right(), 130);
}

} // namespace
