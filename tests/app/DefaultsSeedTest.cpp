#include "app/DefaultsSeed.h"

#include "platform/ColorArchive.h"
#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

TEST(DefaultsSeed, EverySettingOfACollageHasADefault)
{
    const QTemporaryDir folder;
    UserDefaults defaults(folder.filePath(QStringLiteral("store.ini")));
    EXPECT_FALSE(DefaultsSeed::registDefaults(defaults, "no list", QStringLiteral("/home/ada")));
    EXPECT_FALSE(defaults.contains(PreferenceKeys::outputFolder)); // without the list nothing at all is registered
    ASSERT_TRUE(DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), QStringLiteral("/home/ada")));
    EXPECT_EQ(defaults.textValue(PreferenceKeys::outputFolder), QStringLiteral("/home/ada/Pictures/Tessarine"));
    for (const auto &[key, kind] : PreferenceKeys::all()) {
        if (key.startsWith(QLatin1StringView("Def")) || key.endsWith(QLatin1StringView("colorKey"))) {
            EXPECT_TRUE(defaults.contains(key)) << key.data();
            EXPECT_EQ(ColorArchive::unarchive(defaults.dataValue(key).value_or(QByteArray())).has_value(),
                      kind == PreferenceKeys::Kind::Color)
                << key.data();
        }
    }
}

} // namespace
