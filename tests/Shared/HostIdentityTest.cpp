#include "Shared/HostIdentity.h"

#include "platform/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace GlobalFun;

TEST(HostIdentity, ReadsTheSystemsVersion)
{
    const std::tuple<const char *, const char *, std::int64_t> cases[] = {
        {"NAME=x\nVERSION_ID=\"12\"\n", "12.0.0", 0xc0000},
        {"VERSION_ID='3.18.4.9'\r\nX=1\n", "3.18.4", 0x31204},
        {"VERSION_ID=\"\n", "0.0.0", 0},
    };
    const ScratchFolder folder;
    for (const auto &[release, version, packed] : cases) {
        const QString file = folder.write("os-release", release);
        EXPECT_EQ(getSystemVersionString(file).toStdString(), version) << release;
        EXPECT_EQ(getCurrentOSVersion(file), packed) << release;
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
}
