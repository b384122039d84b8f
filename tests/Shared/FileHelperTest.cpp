#include "Shared/FileHelper.h"

#include "support/ScratchFolder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace {

using namespace FileHelper;
namespace fs = std::filesystem;

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
    EXPECT_TRUE(folder.has("new\xff"));
    EXPECT_TRUE(deleteFileWithPath(folder.path("tree")));
    EXPECT_FALSE(deleteFileWithPath(folder.path("tree")));
    EXPECT_FALSE(deleteFileWithPath({}));
    EXPECT_TRUE(deleteDirectoryWithPath(folder.path("link")));
    checkAndCreateFileAtPath(folder.path("name.txt"), true);
    EXPECT_TRUE(fs::is_directory(folder.bytes("name.txt").toStdString()));
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
    EXPECT_FALSE(folder.has("tree"));
    EXPECT_FALSE(folder.has("moved/inside"));
}

TEST(FileHelper, MovesToAnotherFileSystem)
{
    const ScratchFolder folder;
    QByteArray elsewhere = "/dev/shm/tessarine-test-XXXXXX";
    struct stat here = {};
    struct stat there = {};
    if (::stat("/dev/shm", &there) != 0 || ::stat(folder.bytes().constData(), &here) != 0 ||
        here.st_dev == there.st_dev || !::mkdtemp(elsewhere.data()))
        GTEST_SKIP() << "there is no other file system";
    folder.write("tree/leaf", "3");
    moveFile(folder.path("tree"), PathText::fromBytes(QByteArray(elsewhere).append("/tree")));
    EXPECT_FALSE(folder.has("tree"));
    EXPECT_TRUE(fs::exists(elsewhere.toStdString() + "/tree/leaf"));
    fs::remove_all(elsewhere.toStdString());
}

TEST(FileHelper, FindsAFileInItsOwnWay)
{
    const ScratchFolder folder;
    folder.write("here.txt");
    folder.write("sub/one.txt");
    folder.write("other/deep/deeper/two.txt");
    folder.makeFolder("folder.txt");
    const auto find = [&folder](const char *name) { return findFile(folder.path(), QString::fromUtf8(name)); };
    EXPECT_EQ(find("here.txt"), QStringLiteral("here.txt"));
    EXPECT_EQ(find("one.txt"), folder.path("sub/one.txt"));
    EXPECT_EQ(find("two.txt"), folder.path("other/two.txt")); // not where it is, but on the way there
    EXPECT_EQ(find("folder.txt"), std::nullopt);
}

TEST(FileHelper, TellsAFullDisk)
{
    EXPECT_FALSE(isDiskFull(587'202'560));
    EXPECT_TRUE(isDiskFull(587'202'559));
    EXPECT_TRUE(isDiskFull(std::uint64_t{1} << 63)); // negative as a signed number
}

} // namespace
