#include "online/SupportedFormats.h"
#include "online/VXConfigManager.h"
#include "platform/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(VXConfigManager, StoresItsFlagsAtOnceButAnswersTrue)
{
    const ScratchFolder folder;
    UserDefaults defaults(folder.path("store.ini"));
    VXConfigManager config(defaults);
    for (const bool flag : {true, false}) {
        config.setSupportVOB(flag);
        config.setExperimental(!flag);
        UserDefaults onDisk(folder.path("store.ini"));
        EXPECT_EQ(onDisk.boolValue("SupportVOBKey"), flag);
        EXPECT_EQ(onDisk.boolValue("ExperimentalKey"), !flag);
        EXPECT_TRUE(config.supportVOB());
        EXPECT_TRUE(config.experimental());
    }
    EXPECT_TRUE(GlobalFun::getSupportedFmts(config).contains(u"vob"));
}

TEST(SupportedFormats, LeaveOutDiscFilesWithoutTheFlag)
{
    QStringList all = GlobalFun::getSupportedFmts(true);
    EXPECT_EQ(all.size(), 17);
    EXPECT_EQ(all.removeAll(QStringLiteral("vob")), 1);
    EXPECT_EQ(GlobalFun::getSupportedFmts(false), all);
}

} // namespace
