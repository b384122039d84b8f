#include "platform/files/FolderBookmarks.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

struct PortalBookmarksTest : testing::Test {
    const ScratchFolder scratch;
    const QString mount = scratch.makeFolder("doc");
    const QString granted = scratch.makeFolder("doc/1a2b/My \xFF\"Movies\"");
    const PortalBookmarks bookmarks{mount};
};

TEST_F(PortalBookmarksTest, FindTheFolderAgainUnderAnotherMountPoint)
{
    for (const QString &folder : {granted, scratch.makeFolder("doc/1a2b/My \xFF\"Movies\"/deeper/down")}) {
        const auto data = bookmarks.BookmarkDataForURL(folder);
        ASSERT_TRUE(data);
        EXPECT_EQ(bookmarks.resolve(*data)->path, folder);
        EXPECT_FALSE(bookmarks.resolve(*data)->isStale);
        const QString elsewhere = PortalBookmarks(scratch.path("other")).resolve(*data)->path;
        EXPECT_EQ(elsewhere, scratch.path("other") + folder.sliced(mount.size()));
    }
}

TEST_F(PortalBookmarksTest, FolderThatIsRenamedIsStaleUntilItIsBack)
{
    const QByteArray data = *bookmarks.BookmarkDataForURL(granted);
    const std::string inside = scratch.bytes("doc/1a2b").toStdString();
    std::filesystem::rename(inside, inside + "-away");
    EXPECT_TRUE(bookmarks.resolve(data)->isStale);
    EXPECT_FALSE(bookmarks.BookmarkDataForURL(granted));
    std::filesystem::rename(inside + "-away", inside);
    EXPECT_FALSE(bookmarks.resolve(data)->isStale);
}

TEST_F(PortalBookmarksTest, OtherFoldersAreRememberedByPath)
{
    for (const QString &folder : {scratch.path(), mount, scratch.path("doc/1a2b")}) {
        const auto data = bookmarks.BookmarkDataForURL(folder);
        ASSERT_TRUE(data);
        EXPECT_EQ(bookmarks.resolve(*data)->path, folder);
        EXPECT_EQ(PathBookmarks().resolve(*data)->path, folder);
    }
    EXPECT_FALSE(PathBookmarks().resolve(*bookmarks.BookmarkDataForURL(granted))) << "no portal, no such folder";
    EXPECT_FALSE(bookmarks.resolve("[]"));
    EXPECT_FALSE(bookmarks.BookmarkDataForURL({}));
}
