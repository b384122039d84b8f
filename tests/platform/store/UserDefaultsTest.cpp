#include "platform/store/UserDefaults.h"

#include "support/ScratchFolder.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

TEST(UserDefaults, ReadsWhatAPersonMeans)
{
    const std::vector<std::tuple<QByteArray, bool, std::int32_t, std::int64_t>> cases{
        {"true", true, 1, 1},
        {"\" Yes \"", true, 1, 1},
        {"\"1\"", true, 1, 1},
        {"\"no\"", false, 0, 0},
        {"12.9", true, 12, 12},
        {"\"-12.9\"", true, -12, -12},
        {"\"12 tiles\"", false, 0, 0},
        {"\"nan\"", false, 0, 0},
        {"-99999999999", true, INT32_MIN, -99999999999},
        {"9007199254740993", true, INT32_MAX, 9007199254740993},
        {"\"-1e999\"", true, INT32_MIN, INT64_MIN},
        {"{\"1\":1}", false, 0, 0},
    };
    const ScratchFolder folder;
    for (const auto &[written, boolean, int32, int64] : cases) {
        SCOPED_TRACE(written.constData());
        const QByteArray json = R"({"stored":)" + written + R"(,"registered":null})";
        const QVariant value = QJsonDocument::fromJson(json).object().toVariantMap().value(u"stored"_s);
        UserDefaults defaults(folder.write("s.json", json));
        defaults.registerDefaults({{u"registered"_s, value}, {u"stored"_s, u"hidden"_s}});
        defaults.setVolatile(u"volatile", value);
        for (const QString &key : {u"registered"_s, u"volatile"_s, u"stored"_s}) {
            EXPECT_EQ(defaults.boolValue(key), boolean);
            EXPECT_EQ(defaults.int32Value(key), int32);
            EXPECT_EQ(defaults.int64Value(key), int64);
        }
    }
}

TEST(UserDefaults, ServesManyThreads)
{
    const ScratchFolder folder;
    UserDefaults defaults(folder.path("s.json"));
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
    EXPECT_EQ(folder.read("s.json"), "{\n    \"0\": 99,\n    \"1\": 99,\n    \"2\": 99,\n    \"3\": 99\n}\n");
}
