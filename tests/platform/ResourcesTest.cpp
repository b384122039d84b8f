// Property lists and archived colours.
#include "platform/ColorArchive.h"
#include "platform/PropertyList.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

static const QByteArray everyType = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
  <key>no</key><false/> <key>minus</key><integer>-7</integer> <key>big</key><integer>9007199254740993</integer>
  <key>real</key><real>0.1</real> <key>text</key><string>F&#252;&#223;e &amp; 映画</string> <key>none</key><string/>
  <key>data</key><data>AAH/</data> <key>date</key><date>2024-02-29T12:30:00Z</date>
  <key>list</key><array><true/><dict><key>k</key><string>v</string></dict><array/></array>
</dict></plist>)";

TEST(PropertyList, SurvivesHostileInput)
{
    const QByteArray head = "<plist version=\"1.0\">";
    const std::vector<QByteArray> cases{
        QByteArray(),
        head + "<array/></plist>",
        head + "<dict><key>k</key><string>" + QByteArray(32 << 20, 'x') + "</string></dict></plist>",
        head + QByteArray("<dict><key>k</key>").repeated(500000),
        head + QByteArray("<array>").repeated(500000) + QByteArray("</array>").repeated(500000) + "</plist>",
        head + QByteArray("<!--</dict>--><dict><key>k</key>").repeated(200000),
    };
    for (const QByteArray &xml : cases)
        EXPECT_FALSE(PropertyList::parseDictionary(xml)) << xml.left(60).constData();
    for (qsizetype cut = 0; cut < everyType.size(); ++cut) { // neither cut short nor damaged does it crash
        PropertyList::parseDictionary(everyType.first(cut));
        PropertyList::parseDictionary(QByteArray(everyType).replace(cut, 1, "<"));
        PropertyList::parseDictionary(QByteArray(everyType).replace(cut, 1, QByteArray(1, '\0')));
    }
}

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
