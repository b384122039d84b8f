#include "platform/GeometryText.h"

#include <gtest/gtest.h>

TEST(GeometryTextTest, ReadsWhatItWritesAndRefusesTheRest)
{
    EXPECT_EQ(GeometryText::fromPoint({-5, 12}), u"{-5, 12}");
    EXPECT_EQ(GeometryText::toPoint(u"{-5, 12}"), QPoint(-5, 12));
    EXPECT_EQ(GeometryText::fromRect({1, -2, 30, 40}), u"{{1, -2}, {30, 40}}");
    EXPECT_EQ(GeometryText::toRect(u" {{1,-2} ,{ 30.9,40}}"), QRect(1, -2, 30, 40));
    for (const QStringView text : {u"", u"{1, 2", u"{1, 2, 3}", u"{nan, 2}", u"{99999999999999999999, 2}"})
        EXPECT_FALSE(GeometryText::toPoint(text)) << text.toString().toStdString();
    EXPECT_FALSE(GeometryText::toRect(u"{1, 2}"));
    EXPECT_FALSE(GeometryText::toRect(u"{{1, 2}, {3, 4}} x"));
}
