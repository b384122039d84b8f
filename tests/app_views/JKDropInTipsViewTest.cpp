#include "app/JKDropInTipsView.h"

#include <gtest/gtest.h>

constexpr QRgb ground = qRgb(236, 237, 235);
constexpr QRgb ink = qRgb(162, 164, 166);

/// The rectangle in which anything but the ground shows, from that row on.
static QRect inkedBelow(const QImage &image, int top)
{
    QRect inked;
    for (int at = top * image.width(); at < image.height() * image.width(); ++at) {
        const QPoint point(at % image.width(), at / image.width());
        inked |= image.pixel(point) == ground ? QRect() : QRect(point, QSize(1, 1));
    }
    return inked;
}

TEST(JKDropInTipsView, AnArrowPointsDownInADashedSquareInTheMiddle)
{
    JKDropInTipsView view;
    view.resize(300, 200); // the square: 100 to 200, 50 to 150
    const QImage image = view.grab().toImage();
    // A stem of 18 from 75 to 100, on a head that narrows from 50 to its tip at 125.
    for (const QPoint inked : {QPoint(150, 76), QPoint(142, 90), QPoint(128, 101), QPoint(150, 122)})
        EXPECT_EQ(image.pixel(inked), ink) << inked.x() << ", " << inked.y();
    for (const QPoint left : {QPoint(150, 73), QPoint(140, 90), QPoint(128, 98), QPoint(150, 127), QPoint(130, 120)})
        EXPECT_EQ(image.pixel(left), ground) << left.x() << ", " << left.y();
    view.setBHighlighted(true);
    EXPECT_EQ(view.grab().toImage().pixel(0, 0), qRgb(117, 187, 231));
    EXPECT_EQ(view.grab().toImage().pixel(150, 90), qRgb(247, 249, 251));
}

TEST(JKDropInTipsView, TheTextStandsBelowTheSquareAndIsNeverCut)
{
    JKDropInTipsView view;
    view.resize(600, 400);
    view.setStrPromot(QStringLiteral("Drop movies or folders here"));
    const QRect line = inkedBelow(view.grab().toImage(), 255);
    EXPECT_NEAR(line.top(), 273, 3); // 20 below
    EXPECT_NEAR(line.center().x(), 300, 3);
    view.resize(140, 400);
    const QRect lines = inkedBelow(view.grab().toImage(), 255);
    EXPECT_GT(lines.height(), 2 * line.height());
    EXPECT_TRUE(lines.left() >= 10 && lines.right() <= 130);
}
