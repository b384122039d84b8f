#include "platform/UserDefaults.h"

#include "StoreDump.h"
#include "TestFolder.h"
#include "platform/PathText.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr auto int32Max = std::numeric_limits<std::int32_t>::max();
constexpr auto int32Min = std::numeric_limits<std::int32_t>::min();
constexpr auto int64Max = std::numeric_limits<std::int64_t>::max();
constexpr auto int64Min = std::numeric_limits<std::int64_t>::min();
constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(UserDefaults, ConvertsAnyValueInEveryLayer)
{
    struct Case {
        QVariant value;
        bool boolean;
        std::int32_t int32;
        std::int64_t int64;
        double number;
    };
    const std::vector<Case> cases{
        {u"12.9"_s, true, 12, 12, 12.9},
        {u" 7 "_s, true, 7, 7, 7},
        {u"0.5"_s, true, 0, 0, 0.5},
        {u"Yes"_s, true, 1, 1, 1},
        {u"TRUE"_s, true, 1, 1, 1},
        {u"12 tiles"_s, false, 0, 0, 0},
        {u"nan"_s, false, 0, 0, 0},
        {u""_s, false, 0, 0, 0},
        {u"-99999999999"_s, true, int32Min, -99999999999, -99999999999.0},
        {u"9223372036854775808"_s, true, int32Max, int64Max, 9223372036854775808.0},
        {u"-9223372036854775809"_s, true, int32Min, int64Min, -9223372036854775808.0},
        {u"-1e999"_s, true, int32Min, int64Min, -infinity},
        {9007199254740993LL, true, int32Max, 9007199254740993, 9007199254740992.0},
        {std::numeric_limits<quint64>::max(), true, int32Max, int64Max, 18446744073709551616.0},
        {0.1, true, 0, 0, 0.1},
        {infinity, true, int32Max, int64Max, infinity},
        {std::numeric_limits<double>::quiet_NaN(), false, 0, 0, 0},
        {true, true, 1, 1, 1},
        {QByteArray("\xFF\0", 2), false, 0, 0, 0},
        {QStringList{u"1"_s, u"2"_s}, false, 0, 0, 0},
        {QVariantMap{{u"k"_s, 1}}, false, 0, 0, 0},
    };
    const TestFolder folder;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto &[value, boolean, int32, int64, number] = cases.at(i);
        SCOPED_TRACE(i);
        UserDefaults defaults(folder.file(u"store%1.ini"_s.arg(i)));
        defaults.registerDefaults({{u"registered"_s, value}});
        defaults.setVolatile(u"volatile", value);
        defaults.setText(u"stored", value.toString());
        for (const QString &key : {u"registered"_s, u"volatile"_s, u"stored"_s}) {
            EXPECT_EQ(defaults.boolValue(key), boolean);
            EXPECT_EQ(defaults.int32Value(key), int32);
            EXPECT_EQ(defaults.int64Value(key), int64);
            EXPECT_EQ(defaults.doubleValue(key), number);
        }
    }
}

TEST(UserDefaults, LiesInLayers)
{
    const TestFolder folder;
    UserDefaults defaults(folder.file(u"new/folder/store.ini"_s));
    EXPECT_FALSE(defaults.contains(u"k"));
    defaults.registerDefaults({{u"k"_s, u"registered"_s}});
    EXPECT_EQ(defaults.textValue(u"k"), u"registered");
    defaults.setText(u"k", u"stored"_s);
    EXPECT_EQ(defaults.textValue(u"k"), u"stored");
    defaults.setVolatile(u"k", u"volatile"_s);
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(defaults.textValue(u"k"), u"volatile");
    EXPECT_EQ(folder.read(u"new/folder/store.ini"_s), "[General]\nk=stored\n");
    defaults.setVolatile(u"k", {});
    EXPECT_EQ(defaults.textValue(u"k"), u"stored");
    defaults.remove(u"k");
    EXPECT_EQ(defaults.textValue(u"k"), u"registered");
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(defaults.textValue(u"k"), u"registered");
    EXPECT_EQ(folder.read(u"new/folder/store.ini"_s), "[General]\n");
}

TEST(UserDefaults, ReadsTheSameAfterARestart)
{
    QByteArray allBytes;
    for (int i = 0; i < 256; ++i)
        allBytes += static_cast<char>(i);
    const std::vector<QString> texts{u""_s,
                                     u" blanks "_s,
                                     u"a, b;c=d\"e\\f%"_s,
                                     u"@ByteArray(x)"_s,
                                     u"@Array()"_s,
                                     u"true"_s,
                                     u"line\r\nbreak\0nul\t"_s,
                                     u"Füße 映画 🎬\uFEFF"_s,
                                     QChar(0xD800) + u"1"_s,
                                     PathText::fromBytes("/\xFF\xC3\xED\xA0\x80\xA9"
                                                         "f")};
    const std::vector<QVariantList> arrays{{},         {u""_s},         {u"one"_s},
                                           {allBytes}, {u"@Array()"_s}, {u"a, b"_s, QByteArray(), texts.back()}};

    const TestFolder folder;
    const QString path = folder.file(u"store.ini"_s);
    QStringList keys{u"true"_s, u"false"_s, u"least"_s, u"tenth"_s, u"data"_s, u"none"_s};
    QByteArray before;
    {
        UserDefaults defaults(path);
        defaults.setBool(u"true", true);
        defaults.setBool(u"false", false);
        defaults.setInteger(u"least", int64Min);
        defaults.setDouble(u"tenth", 0.1);
        defaults.setData(u"data", allBytes);
        defaults.setData(u"none", QByteArray());
        for (const QString &text : texts) {
            keys << u"text "_s + QString::number(keys.size());
            defaults.setText(keys.last(), text);
            EXPECT_EQ(defaults.textValue(keys.last()), text);
            EXPECT_FALSE(defaults.dataValue(keys.last()) || defaults.arrayValue(keys.last()));
        }
        for (const QVariantList &array : arrays) {
            keys << u"array "_s + QString::number(keys.size());
            defaults.setArray(keys.last(), array);
            EXPECT_EQ(defaults.arrayValue(keys.last()), array);
        }
        EXPECT_EQ(defaults.doubleValue(u"tenth"), 0.1);
        EXPECT_EQ(defaults.int64Value(u"least"), int64Min);
        EXPECT_EQ(defaults.dataValue(u"data"), allBytes);
        before = dumpStore(defaults, keys);
    } // destruction writes
    QProcess child;
    child.start(QStringLiteral(STORE_CHILD), QStringList{u"dump"_s, path} + keys);
    EXPECT_TRUE(child.waitForFinished(-1));
    EXPECT_EQ(child.readAllStandardOutput().toStdString(), before.toStdString());
}

TEST(UserDefaults, ServesManyThreads)
{
    const TestFolder folder;
    UserDefaults defaults(folder.file(u"s.ini"_s));
    std::array<std::jthread, 4> threads;
    for (std::size_t thread = 0; thread < threads.size(); ++thread) {
        threads.at(thread) = std::jthread([&defaults, key = QString::number(thread)] {
            for (int i = 0; i < 25; ++i) {
                defaults.registerDefaults({{u"r"_s, i}});
                defaults.setVolatile(u"v", i);
                for (int value = 0; value < 100; ++value) { // also while another thread writes the one before to disk
                    defaults.setInteger(key, value);
                    EXPECT_EQ(defaults.int32Value(key), value);
                }
                EXPECT_TRUE(defaults.synchronize());
                EXPECT_EQ(defaults.int32Value(key), 99);
            }
        });
    }
    std::ranges::for_each(threads, &std::jthread::join);
    EXPECT_EQ(folder.read(u"s.ini"_s), "[General]\n0=99\n1=99\n2=99\n3=99\n");
}
