#include "Shared/FolderMaking.h"
#include "Shared/MovieScan.h"
#include "support/ScratchFolder.h"
#include "support/WithoutPrivileges.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace GlobalFun;
using namespace testing;

const CancelFlag never{false};
const QStringList filter = {u"mkv"_s, u"mp4"_s};

/// What the scan finds, relative to the folder.
static std::vector<std::string> scan(const ScratchFolder &folder, const QStringList &extensions = filter)
{
    std::vector<std::string> names;
    for (const QString &path : fileListAtDirenctory(folder.path(), extensions, never)) {
        const QByteArray bytes = PathText::toBytes(path);
        EXPECT_TRUE(bytes.startsWith(folder.bytes().append('/'))) << bytes.constData();
        names.push_back(bytes.mid(folder.bytes().size() + 1).toStdString());
    }
    return names;
}

TEST(MovieScan, FindsMoviesByTheirExtensionAnywhereBelow)
{
    const ScratchFolder folder;
    for (const char *name : {"x/y/Z.MKV", ".hidden.mp4", "caf\xe9.mp4", "line\nbreak.Mp4", "no-extension", "mp4",
                             "notes.txt", "a.mp4.part", "folder.mp4/inside.mkv", "ends."}) {
        folder.write(name);
    }
    folder.link("x", "also-x");
    folder.link("..", "x/y/inside-itself");
    folder.link("x/y/Z.MKV", "link.mkv");
    folder.link("nowhere.mp4", "dangling.mp4");
    EXPECT_THAT(scan(folder), UnorderedElementsAre("x/y/Z.MKV", ".hidden.mp4", "caf\xe9.mp4", "line\nbreak.Mp4",
                                                   "folder.mp4/inside.mkv", "also-x/y/Z.MKV", "link.mkv"));
    EXPECT_THAT(scan(folder, {QString()}), UnorderedElementsAre("no-extension", "mp4", "ends."));
    EXPECT_THAT(fileListAtDirenctory(folder.path(), filter, CancelFlag(true)), IsEmpty());
    EXPECT_THAT(fileListAtDirenctory(folder.path("no such folder"), filter, never), IsEmpty());
}

TEST(MovieScan, EntersAFolder64TimesAtMost)
{
    const ScratchFolder folder;
    for (int level = 0; level < 30; ++level) {
        const QByteArray here = QByteArray::number(level) + '/';
        folder.write(here + "movie.mp4");
        for (const char *link : {"a", "b"}) {
            folder.link("../" + QByteArray::number(level + 1), here + link);
        }
    }
    int told = 0;
    const QStringList found = fileListAtDirenctory(folder.path("0"), filter, never, [&told](auto &&, auto why) {
        EXPECT_EQ(why, FolderWalk::LeftOut::EnteredTooOften);
        ++told;
    });
    EXPECT_EQ(found.size(), 1 + 2 + 4 + 8 + 16 + 32 + 24 * 64);
    EXPECT_EQ(told, 23);
}

TEST(MovieScan, PassesOverWhatItCannotRead)
{
    const ScratchFolder folder;
    folder.write("closed/1.mp4");
    folder.write("unlisted/2.mp4");
    folder.write("open/3.mp4");
    folder.setMode(0, "closed");
    folder.setMode(0001, "unlisted");
    // Folders in one another, down to where no path reaches.
    const std::string longName(200, 'n');
    int level = ::open(folder.bytes().constData(), O_RDONLY | O_DIRECTORY);
    for (int depth = 0, above = level; depth < 30; ++depth, above = level) {
        ASSERT_EQ(::mkdirat(above, longName.c_str(), 0755), 0);
        level = ::openat(above, longName.c_str(), O_RDONLY | O_DIRECTORY);
        ::close(above);
    }
    ::close(level);
    const WithoutPrivileges plainUser;
    EXPECT_THAT(scan(folder), ElementsAre("open/3.mp4"));
    int tooLong = 0;
    fileListAtDirenctory(folder.path(), filter, never,
                         [&tooLong](auto &&, auto why) { tooLong += why == FolderWalk::LeftOut::PathTooLong ? 1 : 0; });
    EXPECT_EQ(tooLong, 1);
}

TEST(FolderMaking, MakesFoldersAndLeavesFilesAlone)
{
    const ScratchFolder folder;
    folder.write("file", "contents");
    folder.makeFolder("there");
    folder.link("there", "link");
    folder.link("nowhere", "dangling");
    for (const char *good : {"there", "link", "a/b/c", "d/e/", "caf\xe9"}) {
        EXPECT_TRUE(MakeSureFolderExsist(folder.path(good))) << good;
    }
    for (const char *bad : {"file", "file/x", "dangling", "../../proc/x"}) {
        EXPECT_FALSE(MakeSureFolderExsist(folder.path(bad))) << bad;
    }
    EXPECT_FALSE(MakeSureFolderExsist({}));
    EXPECT_EQ(folder.read("file"), "contents");
    EXPECT_EQ(folder.names("a/b"), QStringList(u"c"_s));
}
