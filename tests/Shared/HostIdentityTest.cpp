#include "Shared/HostIdentity.h"

#include "platform/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <QRegularExpression>

#include <gmock/gmock.h>
#include <pwd.h>
#include <unistd.h>

namespace {

using namespace GlobalFun;

TEST(HostIdentity, ReadsTheSystemsVersion)
{
    struct {
        const char *release;
        const char *version;
        std::int64_t packed;
    } const cases[] = {
        {"NAME=x\nVERSION_ID=\"12\"\n", "12.0.0", 0xc0000},    {"VERSION_ID=22.04", "22.4.0", 0x160400},
        {"VERSION_ID='3.18.4.9'\r\nX=1\n", "3.18.4", 0x31204}, {"VERSION_ID=20250101\n", "20250101.0.0", 0x134fdf50000},
        {"VERSION_ID=7.rolling.3\n", "7.0.0", 0x70000},        {"VERSION_ID=\"\n", "0.0.0", 0},
        {"NAME=rolling\nXVERSION_ID=5\n", "0.0.0", 0},         {"", "0.0.0", 0},
    };
    const ScratchFolder folder;
    for (const auto &each : cases) {
        const QString file = folder.write("os-release", each.release);
        EXPECT_EQ(getSystemVersionString(file).toStdString(), each.version) << each.release;
        EXPECT_EQ(getCurrentOSVersion(file), each.packed) << each.release;
    }
}

TEST(HostIdentity, KeepsOneIdentifierForGood)
{
    const ScratchFolder folder;
    UserDefaults defaults(folder.path("store.ini"));
    const QString guid = getGUID(defaults);
    const QRegularExpression form(QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"));
    EXPECT_TRUE(form.match(guid).hasMatch());
    EXPECT_EQ(getGUID(defaults), guid);
    UserDefaults another(folder.path("store.ini")); // written at once, not at the end
    EXPECT_EQ(getGUID(another), guid);
    UserDefaults empty(folder.path("empty.ini"));
    EXPECT_NE(getGUID(empty), guid);
}

TEST(HostIdentityDeathTest, EndsForAUserThatNobodyKnows)
{
    if (::getuid() != 0)
        GTEST_SKIP() << "only root can become somebody else";
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_DEATH(
        {
            if (::setuid(3'999'999'999) == 0)
                RealHomeDirectory();
        },
        "pw.*\\+\\[GlobalFun RealHomeDirectory\\].*Shared/GlobalFun.*325");
}

} // namespace
