#include "platform/FolderBookmarks.h"

#include "support/ScratchFolder.h"
#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <gtest/gtest.h>

namespace {

/// Answers GetMountPoint in the document portal's place, on a thread of its own.
class FakePortal final : public QDBusVirtualObject {
public:
    FakePortal(const SessionBus &bus, const QByteArray &mountPoint) : answer(mountPoint), connection(bus.connect())
    {
        moveToThread(&thread);
        thread.start();
        connection.registerVirtualObject(QStringLiteral("/org/freedesktop/portal/documents"), this);
        connection.registerService(QStringLiteral("org.freedesktop.portal.Documents"));
    }
    ~FakePortal() override
    {
        connection.unregisterService(QStringLiteral("org.freedesktop.portal.Documents"));
        connection.unregisterObject(QStringLiteral("/org/freedesktop/portal/documents"));
        thread.quit();
        thread.wait();
    }

    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        if (message.interface() != u"org.freedesktop.portal.Documents" || message.member() != u"GetMountPoint") {
            return false;
        }
        return bus.send(message.createReply(answer));
    }

private:
    const QByteArray answer;
    QThread thread;
    QDBusConnection connection;
};

class PortalBookmarksTest : public testing::Test {
protected:
    const ScratchFolder scratch;
    const QString mount = scratch.makeFolder("doc");
    const QString granted = scratch.makeFolder("doc/1a2b/My \xFF\"Movies\"");
    const PortalBookmarks bookmarks{mount};
};

TEST_F(PortalBookmarksTest, FindTheFolderAgainUnderAnotherMountPoint)
{
    for (const QString &folder : {granted, scratch.makeFolder("doc/1a2b/My \xFF\"Movies\"/deeper/down")}) {
        const auto data = bookmarks.bookmarkData(folder);
        ASSERT_TRUE(data);
        EXPECT_EQ(bookmarks.resolve(*data)->path, folder);
        EXPECT_FALSE(bookmarks.resolve(*data)->isStale);

        const QString elsewhere = PortalBookmarks(scratch.path("other")).resolve(*data)->path;
        EXPECT_EQ(elsewhere, scratch.path("other") + folder.sliced(mount.size()));
    }
}

TEST_F(PortalBookmarksTest, FolderThatIsRenamedIsStaleUntilItIsBack)
{
    const QByteArray data = *bookmarks.bookmarkData(granted);
    const std::string inside = scratch.bytes("doc/1a2b").toStdString();
    std::filesystem::rename(inside, inside + "-away");
    EXPECT_TRUE(bookmarks.resolve(data)->isStale);
    EXPECT_FALSE(bookmarks.bookmarkData(granted));
    std::filesystem::rename(inside + "-away", inside);
    EXPECT_FALSE(bookmarks.resolve(data)->isStale);
}

TEST_F(PortalBookmarksTest, OtherFoldersAreRememberedByPath)
{
    for (const QString &folder : {scratch.path(), mount, scratch.path("doc/1a2b")}) {
        const auto data = bookmarks.bookmarkData(folder);
        ASSERT_TRUE(data);
        EXPECT_EQ(bookmarks.resolve(*data)->path, folder);
        EXPECT_EQ(PathBookmarks().resolve(*data)->path, folder);
    }
    EXPECT_FALSE(PathBookmarks().resolve(*bookmarks.bookmarkData(granted))) << "no portal, no such folder";
    EXPECT_FALSE(bookmarks.resolve("[]"));
    EXPECT_FALSE(bookmarks.bookmarkData({}));
}

TEST_F(PortalBookmarksTest, PortalIsAskedWhereItIs)
{
    const SessionBus bus;
    const FakePortal portal(bus, QByteArray("/run/user/0/d\xFF") + '\0');
    EXPECT_EQ(PortalBookmarks::mountPointOf(bus.connect()), PathText::fromBytes("/run/user/0/d\xFF"));
}

TEST_F(PortalBookmarksTest, WithoutAnAnswerThePortalIsInItsUsualPlace)
{
    const QString usual = PathText::fromBytes(qgetenv("XDG_RUNTIME_DIR")) + u"/doc";
    const SessionBus bus;
    EXPECT_EQ(PortalBookmarks::mountPointOf(bus.connect()), usual);
    EXPECT_EQ(PortalBookmarks::mountPointOf(QDBusConnection(QStringLiteral("none"))), usual);
    const FakePortal portal(bus, "relative");
    EXPECT_EQ(PortalBookmarks::mountPointOf(bus.connect()), usual);
}

TEST_F(PortalBookmarksTest, SandboxDecidesTheKind)
{
    const QDBusConnection noBus(QStringLiteral("none"));
    const auto outside = FolderBookmarks::ofThisSystem(noBus, scratch.path("missing"));
    EXPECT_NE(dynamic_cast<PathBookmarks *>(outside.get()), nullptr);
    const auto inside = FolderBookmarks::ofThisSystem(noBus, scratch.write("flatpak-info"));
    EXPECT_NE(dynamic_cast<PortalBookmarks *>(inside.get()), nullptr);
}

} // namespace
