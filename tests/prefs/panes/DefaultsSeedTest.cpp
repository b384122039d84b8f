#include "prefs/DefaultsSeed.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/PropertyList.h"
#include "platform/store/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using PreferenceKeys::Kind;

TEST(DefaultsSeed, RegistersWhatTheTableAndTheReadmeSay)
{
    const ScratchFolder folder;
    UserDefaults defaults(folder.path("settings.json"));
    EXPECT_FALSE(DefaultsSeed::registDefaults(defaults, {}, u"~"_s, DefaultsSeed::OutputFolder::WhenWritten));
    EXPECT_FALSE(defaults.contains(PreferenceKeys::outputFolder)); // all of them or none
    ASSERT_TRUE(DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), u"~"_s,
                                             DefaultsSeed::OutputFolder::WhenWritten));

    QVariantMap seeds = PropertyList::parseDictionary(DefaultsSeed::resource()).value_or(QVariantMap());
    QFile readme(QStringLiteral(TESSARINE_README));
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
    const QString pages = QString::fromUtf8(readme.readAll());
    for (const PreferenceKeys::Setting &setting : PreferenceKeys::all) {
        SCOPED_TRACE(setting.key.data());
        const bool hasDefault = !setting.initial.isEmpty();
        EXPECT_EQ(defaults.contains(setting), hasDefault);
        EXPECT_EQ(defaults.textValue(setting), setting.initial);
        EXPECT_EQ(setting.kind == Kind::Color, ColorArchive::unarchive(QString(setting.initial)).has_value());
        const QRegularExpression row(u"\\n\\| `%1` \\| .* \\| `%2` \\|\\n"_s.arg(setting.key, setting.initial));
        EXPECT_EQ(row.match(pages).hasMatch(), hasDefault);
        seeds.remove(setting.key);
    }
    EXPECT_TRUE(seeds.isEmpty());
}
