#include "Shared/FileHelper.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

using namespace FileHelper;

TEST(FileHelper, MovesAndCopiesButNeverOverAnything)
{
    const ScratchFolder folder;
    folder.write("one", "1");
    folder.write("two", "2");
    folder.write("tree/leaf", "3");
    folder.link("nowhere", "dangling");
    for (const char *target : {"two", "dangling", "none/file"}) {
        moveFile(folder.path("one"), folder.path(target));
        copyFile(folder.path("one"), folder.path(target));
        EXPECT_EQ(folder.read("one"), "1");
    }
    EXPECT_EQ(folder.read("two"), "2");
    EXPECT_FALSE(folder.has("nowhere"));
    copyFile(folder.path("tree"), folder.path("copy"));
    copyFile(folder.path("tree"), folder.path("tree/inside"));
    moveFile(folder.path("tree"), folder.path("moved"));
    EXPECT_EQ(folder.read("copy/leaf"), "3");
    EXPECT_EQ(folder.read("moved/leaf"), "3");
    EXPECT_FALSE(folder.has("tree") || folder.has("moved/inside"));
}

TEST(FileHelper, FindsAFileInItsOwnWay)
{
    const ScratchFolder folder;
    for (const char *name : {"here.txt", "sub/one.txt", "other/deep/deeper/two.txt"})
        folder.write(name);
    EXPECT_EQ(findFile(folder.path(), u"here.txt"_qs), u"here.txt"_qs);
    EXPECT_EQ(findFile(folder.path(), u"one.txt"_qs), folder.path("sub/one.txt"));
    EXPECT_EQ(findFile(folder.path(), u"two.txt"_qs), folder.path("other/two.txt")); // not there, but on the way
    EXPECT_EQ(findFile(folder.path(), u"three.txt"_qs), std::nullopt);
}
