#include "app/DefaultsSeed.h"

#include "platform/ColorArchive.h"
#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(DefaultsSeed, EverySettingOfACollageHasADefault)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("store.ini")));
    ASSERT_TRUE(DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), QStringLiteral("/home/ada")));

    for (const PreferenceKeys::Entry &entry : PreferenceKeys::all()) {
        const bool isSeeded = entry.kind != PreferenceKeys::Kind::Array && entry.key != PreferenceKeys::guid &&
                              entry.key != PreferenceKeys::appSupportVob && entry.key != PreferenceKeys::supportVob &&
                              entry.key != PreferenceKeys::experimental;
        EXPECT_EQ(defaults.contains(entry.key), isSeeded) << entry.key.data();
        if (entry.kind == PreferenceKeys::Kind::Color) {
            EXPECT_TRUE(ColorArchive::unarchive(defaults.dataValue(entry.key).value_or(QByteArray())))
                << entry.key.data();
        }
    }
    EXPECT_EQ(defaults.textValue(PreferenceKeys::outputFolder), QStringLiteral("/home/ada/Pictures/Tessarine"));
    EXPECT_EQ(defaults.int32Value(PreferenceKeys::metadataText), 0x3FD);
}

TEST(DefaultsSeed, WithoutThePropertyListNothingIsRegistered)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("store.ini")));
    EXPECT_FALSE(DefaultsSeed::registDefaults(defaults, "no list", QStringLiteral("/home/ada")));
    EXPECT_TRUE(
        std::ranges::none_of(PreferenceKeys::all(), [&](const auto &entry) { return defaults.contains(entry.key); }));
}

} // namespace
