// Property lists, the bundle, archived colours, keys and bookmarks.
#include "TestFolder.h"
#include "platform/Bundle.h"
#include "platform/ColorArchive.h"
#include "platform/FolderBookmark.h"
#include "platform/PathText.h"
#include "platform/PreferenceKeys.h"
#include "platform/PropertyList.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const QByteArray everyType = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0"><dict>
  <key>no</key><false/> <key>minus</key><integer>-7</integer> <key>big</key><integer>9007199254740993</integer>
  <key>real</key><real>0.1</real> <key>text</key><string>F&#252;&#223;e &amp; 映画</string> <key>none</key><string/>
  <key>data</key><data>AAH/</data> <key>date</key><date>2024-02-29T12:30:00Z</date>
  <key>list</key><array><true/><dict><key>k</key><string>v</string></dict><array/></array>
</dict></plist>)";

} // namespace

TEST(PropertyList, KeepsTypes)
{
    const auto map = PropertyList::parseDictionary(everyType);
    ASSERT_TRUE(map);
    const QVariantMap expected{
        {u"no"_s, false},
        {u"minus"_s, qlonglong{-7}},
        {u"big"_s, qlonglong{9007199254740993}},
        {u"real"_s, 0.1},
        {u"text"_s, u"Füße & 映画"_s},
        {u"none"_s, QString()},
        {u"data"_s, QByteArray("\0\x01\xFF", 3)},
        {u"date"_s, u"2024-02-29T12:30:00Z"_s},
        {u"list"_s, QVariantList{true, QVariantMap{{u"k"_s, u"v"_s}}, QVariantList()}},
    };
    EXPECT_EQ(*map, expected);
    for (auto value = expected.cbegin(); value != expected.cend(); ++value)
        EXPECT_EQ(map->value(value.key()).typeId(), value->typeId()) << qPrintable(value.key());
}

TEST(PropertyList, SurvivesHostileInput)
{
    const QByteArray head = "<plist version=\"1.0\">";
    const std::vector<QByteArray> cases{
        QByteArray(),
        "no property list",
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

TEST(Bundle, HasTheProgramsValues)
{
    const Bundle bundle = Bundle::main();
    EXPECT_EQ(bundle.identifier(), u"org.tessarine.Tessarine");
    EXPECT_EQ(bundle.value(u"CFBundleName"_s), u"Tessarine");
    EXPECT_EQ(bundle.value(u"CFBundleShortVersionString"_s), QLatin1StringView(PROJECT_VERSION));
    EXPECT_FALSE(bundle.value(u"CFBundleVersion"_s).isEmpty());
    EXPECT_TRUE(bundle.value(u"ServiceURL"_s).startsWith("http"_L1));
    EXPECT_EQ(bundle.value(u"absent"_s), QString());
    EXPECT_EQ(Bundle("broken").identifier(), QString());
}

TEST(ColorArchive, LosesNothingOfAnEightBitColour)
{
    for (int i = 0; i < 256; ++i) {
        const QColor color(i, 255 - i, i ^ 0x55, i ^ 0xAA);
        ASSERT_EQ(ColorArchive::unarchive(ColorArchive::archive(color)), color);
    }
    for (const QColor &color : {QColor::fromCmyk(10, 200, 30, 40, 50), QColor::fromHsv(200, 100, 50, 25)})
        EXPECT_EQ(ColorArchive::unarchive(ColorArchive::archive(color)), color.toRgb());
    EXPECT_EQ(ColorArchive::archive(QColor(51, 0, 255, 102)),
              R"({"alpha":0.4,"blue":1,"colorSpace":"sRGB","green":0,"red":0.2})");
}

TEST(ColorArchive, RefusesWhatIsNoColour)
{
    for (const char *data : {
             "",
             "white",
             "[]",
             R"({"colorSpace":"CMYK","red":0,"green":0,"blue":0,"alpha":1})",
             R"({"red":0,"green":0,"blue":0,"alpha":1})",
             R"({"colorSpace":"sRGB","red":0,"green":0,"blue":0})",
             R"({"colorSpace":"sRGB","red":"0","green":0,"blue":0,"alpha":1})",
             R"({"colorSpace":"sRGB","red":1.1,"green":0,"blue":0,"alpha":1})",
             R"({"colorSpace":"sRGB","red":0,"green":-0.1,"blue":0,"alpha":1})",
             R"({"colorSpace":"sRGB","red":0,"green":0,"blue":1e999,"alpha":1})",
         })
        EXPECT_FALSE(ColorArchive::unarchive(data)) << data;
}

TEST(PreferenceKeys, AreDistinctAndOfTheirKind)
{
    using PreferenceKeys::Kind;
    QSet<QString> keys;
    for (const auto &entry : PreferenceKeys::all()) {
        keys.insert(entry.key);
        EXPECT_EQ(PreferenceKeys::kindOf(QString(entry.key)), entry.kind);
    }
    EXPECT_EQ(keys.size(), 25);
    EXPECT_EQ(PreferenceKeys::kindOf(u"DefultBkgColor"), Kind::Color);
    EXPECT_EQ(PreferenceKeys::kindOf(u"AppSupportVob"), Kind::Boolean);
    EXPECT_EQ(PreferenceKeys::kindOf(u"OutputFolderKey"), Kind::Text);
    EXPECT_EQ(PreferenceKeys::kindOf(u"BookmarksKey"), Kind::Array);
    EXPECT_EQ(PreferenceKeys::kindOf(u"DefaultHGaps"), Kind::Integer);
    EXPECT_EQ(PreferenceKeys::kindOf(u"defaulthgaps"), std::nullopt);
}

TEST(FolderBookmark, RecordsWhichFolderIsWhere)
{
    const TestFolder folder;
    const QByteArray path = folder.path("100% \xFF\"\n");
    ASSERT_EQ(::mkdir(path.constData(), 0700), 0);
    struct stat status = {};
    ASSERT_EQ(::stat(path.constData(), &status), 0);

    const auto data = bookmarkData(PathText::fromBytes(path));
    ASSERT_TRUE(data);
    const QJsonObject record = QJsonDocument::fromJson(*data).object();
    EXPECT_EQ(record[u"kind"_s].toString(), u"path");
    EXPECT_EQ(QByteArray::fromPercentEncoding(record[u"path"_s].toString().toLatin1()), path);
    EXPECT_EQ(record[u"dev"_s].toInteger(), static_cast<qint64>(status.st_dev));
    EXPECT_EQ(record[u"inode"_s].toInteger(), static_cast<qint64>(status.st_ino));

    for (const QString &nothing :
         QStringList{QString(), folder.file(u"missing"_s), PathText::fromBytes(path) + QChar(0)})
        EXPECT_FALSE(bookmarkData(nothing));
}
