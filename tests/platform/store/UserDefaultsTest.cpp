#include "platform/store/UserDefaults.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

constexpr auto int32Max = std::numeric_limits<std::int32_t>::max();
constexpr auto int32Min = std::numeric_limits<std::int32_t>::min();
constexpr auto int64Max = std::numeric_limits<std::int64_t>::max();
constexpr auto int64Min = std::numeric_limits<std::int64_t>::min();

TEST(UserDefaults, ConvertsAnyValueInEveryLayer)
{
    const std::vector<std::tuple<QVariant, bool, std::int32_t, std::int64_t, double>> cases{
        {u"12.9"_s, true, 12, 12, 12.9},
        {u"Yes"_s, true, 1, 1, 1},
        {u"12 tiles"_s, false, 0, 0, 0},
        {u"nan"_s, false, 0, 0, 0},
        {u"-99999999999"_s, true, int32Min, -99999999999, -99999999999.0},
        {u"9223372036854775808"_s, true, int32Max, int64Max, 9223372036854775808.0},
        {u"-1e999"_s, true, int32Min, int64Min, -HUGE_VAL},
        {9007199254740993LL, true, int32Max, 9007199254740993, 9007199254740992.0},
        {std::numeric_limits<quint64>::max(), true, int32Max, int64Max, 18446744073709551616.0},
        {std::nan(""), false, 0, 0, 0},
        {QByteArray("\xFF\0", 2), false, 0, 0, 0},
    };
    const ScratchFolder folder;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto &[value, boolean, int32, int64, number] = cases.at(i);
        SCOPED_TRACE(i);
        UserDefaults defaults(folder.path("store" + QByteArray::number(int(i))));
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

TEST(UserDefaults, ServesManyThreads)
{
    const ScratchFolder folder;
    UserDefaults defaults(folder.path("s.ini"));
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
    EXPECT_EQ(folder.read("s.ini"), "[General]\n0=99\n1=99\n2=99\n3=99\n");
}
