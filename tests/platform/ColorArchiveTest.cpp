#include "platform/ColorArchive.h"

#include <gtest/gtest.h>

TEST(ColorArchive, LosesNothingOfAnEightBitColour)
{
    for (int i = 0; i < 256; ++i) {
        const QColor color(i, 255 - i, i ^ 0x55, i ^ 0xAA);
        ASSERT_EQ(ColorArchive::unarchive(ColorArchive::archive(color)), color);
    }
    EXPECT_EQ(ColorArchive::archive(QColor(51, 0, 255, 102)),
              R"({"alpha":0.4,"blue":1,"colorSpace":"sRGB","green":0,"red":0.2})");
}

TEST(ColorArchive, RefusesWhatIsNoColour)
{
    for (const char *data :
         {"", "[]", R"({"red":0,"green":0,"blue":0,"alpha":1})", R"({"colorSpace":"sRGB","red":0,"green":0,"blue":0})",
          R"({"colorSpace":"sRGB","red":"0","green":0,"blue":0,"alpha":1})",
          R"({"colorSpace":"sRGB","red":1.1,"green":0,"blue":0,"alpha":1})",
          R"({"colorSpace":"sRGB","red":0,"green":-0.1,"blue":0,"alpha":1})"})
        EXPECT_FALSE(ColorArchive::unarchive(data)) << data;
}
