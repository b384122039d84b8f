#include "Shared/PreferenceKeys.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/NotificationCenter.h"
#include "platform/widgets/ColorWell.h"
#include "prefs/panes/RBGeneralPreferViewCtl.h"
#include "prefs/panes/RBMetadataPrefViewCtl.h"
#include "support/ScratchFolder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct PanesTest : testing::Test {
    template<typename Control>
    static Control &control(PreferencePane &pane, const char *name)
    {
        return *pane.view().findChild<Control *>(QLatin1StringView(name));
    }
    /// What has reached the disk.
    std::int64_t stored(QLatin1StringView key) const { return UserDefaults(storePath).int64Value(key); }

    const ScratchFolder scratch;
    const QString storePath = scratch.path("settings.json");
    UserDefaults defaults{storePath};
    NotificationCenter notifications;
};

TEST_F(PanesTest, GeneralControlsShowAndWriteTheirOwnKeys)
{
    const std::pair<const char *, QLatin1StringView> boxes[] = {
        {"revealFinder", PreferenceKeys::revealInFinder},
        {"chkOpenAfter", PreferenceKeys::openAfterFinish},
        {"chkRemoveAfter", PreferenceKeys::clearAfterFinish},
    };
    for (const auto &[name, key] : boxes) {
        for (const auto &[other, otherKey] : boxes) {
            defaults.setBool(otherKey, otherKey == key);
        }
        RBGeneralPreferViewCtl pane(defaults);
        for (const auto &[other, otherKey] : boxes) {
            EXPECT_EQ(control<QCheckBox>(pane, other).isChecked(), otherKey == key) << name << other;
        }
        control<QCheckBox>(pane, name).setChecked(false);
        EXPECT_TRUE(defaults.boolValue(key)) << "written before the commit";
        EXPECT_TRUE(pane.commitEditing());
        EXPECT_EQ(stored(key), 0) << name;
    }
}

TEST_F(PanesTest, FormatAndCornerThatAreNoneBecomeTheFirst)
{
    EXPECT_TRUE(RBGeneralPreferViewCtl(defaults).commitEditing()); // never seen
    EXPECT_FALSE(defaults.contains(PreferenceKeys::outputFormat));
    for (const std::int64_t number : {0LL, 1LL, 3LL, 4LL, -1LL, 1LL << 32}) {
        defaults.setInteger(PreferenceKeys::outputFormat, number);
        defaults.setInteger(PreferenceKeys::gridTextPosition, number);
        RBGeneralPreferViewCtl general(defaults);
        RBMetadataPrefViewCtl metadata(defaults, notifications);
        metadata.view();
        EXPECT_EQ(control<QComboBox>(general, "pBtnFmts").currentText(), number == 1   ? u"PNG"
                                                                         : number == 3 ? u"TIFF"
                                                                                       : u"JPEG");
        EXPECT_TRUE(general.commitEditing() && metadata.commitEditing());
        const std::int64_t kept = number > 3 || number < 0 ? 0 : number;
        EXPECT_EQ(stored(PreferenceKeys::outputFormat), kept);
        EXPECT_EQ(stored(PreferenceKeys::gridTextPosition), kept);
    }
}

TEST_F(PanesTest, MetadataBoxesAreTheBitsOfTheNumber)
{
    const std::pair<const char *, int> bits[] = {
        {"chkTimestamp", 1}, {"chkMilisec", 2}, {"chkFilename", 4}, {"chkFilesize", 8},    {"chkResolution", 16},
        {"chkDuration", 32}, {"chkDate", 64},   {"chkFPS", 128},    {"chkCodecname", 256}, {"chkBitrate", 512}};
    for (const auto &[name, bit] : bits) {
        defaults.setInteger(PreferenceKeys::metadataText, bit | 1024);
        RBMetadataPrefViewCtl pane(defaults, notifications);
        EXPECT_TRUE(control<QCheckBox>(pane, name).isChecked()) << name;
        pane.commitEditing();
        EXPECT_EQ(stored(PreferenceKeys::metadataText), bit) << name;
    }
}

TEST_F(PanesTest, AllAndNoneLeaveTheTimeStampsAlone)
{
    for (const auto &[before, button, after] : {std::tuple{1023, "btnUncheckAll", 3}, {2, "btnCheckAll", 1022}}) {
        defaults.setInteger(PreferenceKeys::metadataText, before);
        RBMetadataPrefViewCtl pane(defaults, notifications);
        QTest::mouseClick(&control<QPushButton>(pane, button), Qt::LeftButton);
        EXPECT_EQ(defaults.int32Value(PreferenceKeys::metadataText), before) << "written before the commit";
        pane.commitEditing();
        EXPECT_EQ(stored(PreferenceKeys::metadataText), after);
    }
}

TEST_F(PanesTest, ColoursThatCannotBeReadShowWhiteAndBlackAndAreReplaced)
{
    defaults.setText(PreferenceKeys::metadataTextColor, u"nonsense"_s);
    defaults.setText(PreferenceKeys::gridTextColor, u"nonsense"_s);
    RBMetadataPrefViewCtl pane(defaults, notifications);
    EXPECT_EQ(control<ColorWell>(pane, "colorWellGridText").color(), QColor(Qt::black));
    const QColor green(1, 255, 3, 77);
    control<ColorWell>(pane, "colorWellGridText").setColor(green);
    pane.commitEditing();
    const UserDefaults read(storePath);
    EXPECT_EQ(ColorArchive::storedColor(read, PreferenceKeys::metadataTextColor, Qt::red), QColor(Qt::white));
    EXPECT_EQ(ColorArchive::storedColor(read, PreferenceKeys::gridTextColor, Qt::red), green);
}
