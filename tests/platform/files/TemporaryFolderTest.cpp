#include "platform/files/TemporaryFolder.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

TEST(TemporaryFolder, ClearsUpAfterKilledProcessesOnly)
{
    const ScratchFolder folder;
    folder.write("tessarine-killed/lock");
    folder.write("tessarine-killed/sub/x.jpg");
    folder.write("kept/lock");
    folder.link(folder.bytes("kept"), "tessarine-killed/way-out");
    folder.link(folder.bytes("kept"), "tessarine-linked");
    folder.write("tessarine-myfile/mine");
    folder.write("tessarine-my-own-folder/lock");
    folder.makeFolder("tessarine-locked");
    folder.link(folder.bytes("kept/lock"), "tessarine-locked/lock");
    QStringList expected = folder.names();
    expected.removeOne(QString::fromLatin1("tessarine-killed"));
    {
        const auto first = TemporaryFolder::in(folder.path());
        const auto second = TemporaryFolder::in(folder.path());
        EXPECT_TRUE(std::filesystem::exists(PathText::toBytes(first.value().path()).toStdString()));
        EXPECT_EQ(folder.names().size(), expected.size() + 2);
    }
    EXPECT_EQ(folder.names(), expected);
    EXPECT_TRUE(folder.has("kept/lock"));
    EXPECT_FALSE(TemporaryFolder::in(folder.path("missing")));
}
