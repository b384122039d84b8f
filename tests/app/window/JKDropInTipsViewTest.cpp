#include "app/window/JKDropInTipsView.h"

#include <gtest/gtest.h>

constexpr QRgb ground = qRgb(236, 237, 235);
constexpr QRgb ink = qRgb(162, 164, 166);

TEST(JKDropInTipsView, AnArrowPointsDownInADashedSquareInTheMiddle)
{
    JKDropInTipsView view;
    view.resize(300, 200); // the square: 100 to 200, 50 to 150
    const QImage image = view.grab().toImage();
    // A stem of 18 from 75 to 100, on a head that narrows from 50 to its tip at 125.
    for (const QPoint inked : {QPoint(150, 76), QPoint(142, 90), QPoint(128, 101), QPoint(150, 122)}) {
        EXPECT_EQ(image.pixel(inked), ink) << inked.x() << ", " << inked.y();
    }
    for (const QPoint left : {QPoint(150, 73), QPoint(140, 90), QPoint(128, 98), QPoint(150, 127), QPoint(130, 120)}) {
        EXPECT_EQ(image.pixel(left), ground) << left.x() << ", " << left.y();
    }
    view.setBHighlighted(true);
    EXPECT_EQ(view.grab().toImage().pixel(0, 0), qRgb(117, 187, 231));
    EXPECT_EQ(view.grab().toImage().pixel(150, 90), qRgb(247, 249, 251));
}
