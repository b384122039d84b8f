#include "Shared/FileHelper.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace FileHelper;

TEST(FileHelper, CreatesAndDeletes)
{
    const ScratchFolder folder;
    folder.write("full", "contents");
    folder.write("tree/a/b", "x");
    folder.write("kept/file");
    folder.link("kept", "link");
    ASSERT_EQ(::mkfifo(folder.bytes("fifo").constData(), 0600), 0);
    EXPECT_TRUE(directoryExistsWithPath(folder.path("full"))); // of a file, too
    for (const auto &[name, made] :
         {std::pair{"full", true}, {"new\xff", true}, {"tree", false}, {"none/file", false}, {"fifo", false}})
        EXPECT_EQ(createFileWithPath(folder.path(name)), made) << name;
    EXPECT_EQ(folder.read("full"), "");
    EXPECT_TRUE(deleteFileWithPath(folder.path("tree")));
    EXPECT_FALSE(deleteFileWithPath(folder.path("tree")));
    EXPECT_TRUE(deleteDirectoryWithPath(folder.path("link")));
    checkAndCreateFileAtPath(folder.path("name.txt"), true);
    EXPECT_TRUE(std::filesystem::is_directory(folder.bytes("name.txt").toStdString()));
    EXPECT_EQ(folder.names().join(u' '), u"fifo full kept name.txt " + PathText::fromBytes("new\xff"));
    EXPECT_TRUE(folder.has("kept/file"));
}

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
