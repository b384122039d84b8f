#include "Shared/PreferenceKeys.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"
#include "platform/threads/NotificationCenter.h"
#include "platform/widgets/ColorWell.h"
#include "prefs/panes/RBGeneralPreferViewCtl.h"
#include "prefs/panes/RBMetadataPrefViewCtl.h"
#include "render/ImageFormats.h"
#include "render/MetadataText.h"
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

TEST_F(PanesTest, BoxesShowTheirOwnKeysAndWriteThemAtTheCommit)
{
    defaults.setBool(PreferenceKeys::openAfterFinish, true);
    RBGeneralPreferViewCtl pane(defaults);
    for (const char *name :
         {"revealFinder", "chkOpenAfter", "chkRemoveAfter", "displayAspect", "deinterlace", "toneMap", "skipBlank"}) {
        QCheckBox &box = control<QCheckBox>(pane, name);
        EXPECT_EQ(box.isChecked(), qstrcmp(name, "chkOpenAfter") == 0) << name;
        box.toggle();
    }
    EXPECT_TRUE(defaults.boolValue(PreferenceKeys::openAfterFinish)) << "written before the commit";
    EXPECT_TRUE(pane.commitEditing());
    EXPECT_EQ(stored(PreferenceKeys::revealInFinder), 1);
    EXPECT_EQ(stored(PreferenceKeys::openAfterFinish), 0);
    EXPECT_EQ(stored(PreferenceKeys::clearAfterFinish), 1);
    QWidget *last = &control<QComboBox>(pane, "frameSource");
    for (const auto &[name, key] : {std::pair{"displayAspect", PreferenceKeys::displayAspect},
                                    {"deinterlace", PreferenceKeys::deinterlace},
                                    {"toneMap", PreferenceKeys::toneMap},
                                    {"skipBlank", PreferenceKeys::skipBlank}}) {
        EXPECT_EQ(stored(key), 1) << name;
        last = last->nextInFocusChain();
        EXPECT_EQ(last->objectName(), QLatin1StringView(name));
    }
}

TEST_F(PanesTest, FormatAndCornerThatAreNoneBecomeTheFirst)
{
    EXPECT_TRUE(RBGeneralPreferViewCtl(defaults).commitEditing()); // never seen
    EXPECT_FALSE(defaults.contains(PreferenceKeys::outputFormat));
    for (const auto &[number, kept, format] : {std::tuple{3LL, 3, "TIFF"},
                                               {std::ssize(imageFormats), 0, "JPEG"},
                                               {-1LL, 0, "JPEG"},
                                               {1LL << 32, 0, "JPEG"}}) {
        defaults.setInteger(PreferenceKeys::outputFormat, number);
        defaults.setInteger(PreferenceKeys::gridTextPosition, number);
        RBGeneralPreferViewCtl general(defaults);
        RBMetadataPrefViewCtl metadata(defaults, notifications);
        metadata.view();
        EXPECT_EQ(control<QComboBox>(general, "pBtnFmts").currentText(), QLatin1StringView(format));
        EXPECT_TRUE(general.commitEditing() && metadata.commitEditing());
        EXPECT_EQ(stored(PreferenceKeys::outputFormat), kept);
        EXPECT_EQ(stored(PreferenceKeys::gridTextPosition), kept);
    }
}

TEST_F(PanesTest, AllAndNoneLeaveTheTimeStampsAlone)
{
    std::int32_t lines = 0;
    for (const MetadataLine &line : metadataLines()) {
        lines += line.value ? static_cast<std::int32_t>(line.item) : 0;
    }
    for (const auto &[before, button, after] :
         {std::tuple{lines + 3, "btnUncheckAll", 3}, {2, "btnCheckAll", lines + 2}}) {
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
