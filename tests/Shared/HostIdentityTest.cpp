#include "Shared/HostIdentity.h"

#include "platform/Bundle.h"
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
        {"NAME=x\nVERSION_ID=\"12\"\n", "12.0.0", 0xc0000},
        {"VERSION_ID=22.04", "22.4.0", 0x160400},
        {"VERSION_ID='3.18.4.9'\r\nX=1\n", "3.18.4", 0x31204},
        {"VERSION_ID=20250101\n", "20250101.0.0", 0x134fdf50000},
        {"VERSION_ID=7.rolling.3\n", "7.0.0", 0x70000},
        {"VERSION_ID=sid\n", "0.0.0", 0},
        {"VERSION_ID=\n", "0.0.0", 0},
        {"VERSION_ID=\"\n", "0.0.0", 0},
        {"NAME=rolling\nXVERSION_ID=5\n", "0.0.0", 0},
        {"", "0.0.0", 0},
    };
    const ScratchFolder folder;
    for (const auto &each : cases) {
        const QString file = folder.write("os-release", each.release);
        EXPECT_EQ(getSystemVersionString(file).toStdString(), each.version) << each.release;
        EXPECT_EQ(getCurrentOSVersion(file), each.packed) << each.release;
    }
}

TEST(HostIdentity, StopsAtTheFirstPartThatIsUnknown)
{
    const ScratchFolder folder;
    std::uint32_t major = 91;
    std::uint32_t minor = 92;
    std::uint32_t bugFix = 93;
    getMajor(major, minor, bugFix, folder.write("os-release", "VERSION_ID=7.x.3"));
    EXPECT_EQ(major, 7U);
    EXPECT_EQ(minor, 92U);
    EXPECT_EQ(bugFix, 93U);
}

TEST(HostIdentity, KeepsOneIdentifierForGood)
{
    const ScratchFolder folder;
    const QString store = folder.path("store.ini");
    QString guid;
    {
        UserDefaults defaults(store);
        guid = getGUID(defaults);
        EXPECT_EQ(getGUID(defaults), guid);
        EXPECT_TRUE(folder.read("store.ini").contains(guid.toLatin1())); // at once, not at the end
    }
    EXPECT_TRUE(
        QRegularExpression(QStringLiteral("^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")).match(guid).hasMatch());
    UserDefaults reopened(store);
    EXPECT_EQ(getGUID(reopened), guid);
    UserDefaults another(folder.path("another.ini"));
    EXPECT_NE(getGUID(another), guid);
}

TEST(HostIdentity, FindsTheRealHome)
{
    qputenv("HOME", "/somewhere/else");
    EXPECT_EQ(PathText::toBytes(RealHomeDirectory()), ::getpwuid(::getuid())->pw_dir);
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

TEST(HostIdentity, GivesTheProgramsVersionThreeParts)
{
    const std::pair<const char *, const char *> cases[] = {
        {"3", "3.0.0"}, {"2.1", "2.1.0"}, {"1.2.3", "1.2.3"}, {"1.2.3.4", "1.2.3"}, {"", "0.0.0"}, {"1..2", "1..2"},
    };
    for (const auto &[version, normal] : cases) {
        const QByteArray list =
            QByteArray("<plist version=\"1.0\"><dict><key>CFBundleShortVersionString</key><string>") + version +
            "</string><key>CFBundleVersion</key><string>57</string></dict></plist>";
        const Bundle bundle(list);
        EXPECT_EQ(getAppVersion(bundle).toStdString(), normal);
        EXPECT_EQ(getAppBuildVersion(bundle).toStdString(), std::string(normal) + ".57");
    }
    EXPECT_EQ(bundleID(Bundle::main()), QStringLiteral("org.tessarine.Tessarine"));
}

} // namespace
