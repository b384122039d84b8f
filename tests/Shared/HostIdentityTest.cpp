#include "Shared/HostIdentity.h"

#include "platform/store/UserDefaults.h"
#include "support/ScratchFolder.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

using namespace GlobalFun;

TEST(HostIdentity, KeepsOneIdentifierForGood)
{
    const ScratchFolder folder;
    UserDefaults defaults(folder.path("settings.json"));
    const QString guid = getGUID(defaults);
    const QRegularExpression form(u"^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$"_s);
    EXPECT_TRUE(form.match(guid).hasMatch());
    EXPECT_EQ(getGUID(defaults), guid);
    UserDefaults another(folder.path("settings.json")); // written at once, not at the end
    EXPECT_EQ(getGUID(another), guid);
}
