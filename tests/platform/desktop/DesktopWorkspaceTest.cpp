#include "platform/desktop/DesktopWorkspace.h"

#include "platform/threads/MainQueue.h"
#include "support/FakeService.h"
#include "support/ScratchFolder.h"

#include <QCoreApplication>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QTest>
#include <QUrl>

#include <gmock/gmock.h>

#include <thread>

using namespace Qt::StringLiterals;

using testing::ElementsAre;

/// Opens addresses in the desktop's place.
class OpenedUrls : public QObject {
    Q_OBJECT
public:
    OpenedUrls() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }
    ~OpenedUrls() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
    std::vector<std::string> urls;

public Q_SLOTS:
    void open(const QUrl &url) { urls.push_back(url.toEncoded().toStdString()); }
};

struct DesktopWorkspaceTest : testing::Test {
    const ScratchFolder scratch;
    const QString file = scratch.write("a \xFF#%.jpg");
    const std::string encodedFolder = "file://" + scratch.bytes().toStdString();
    const SessionBus bus;
    MainQueue mainQueue;
    OpenedUrls opened;
};

TEST_F(DesktopWorkspaceTest, OpensFilesOnTheMainThreadWhoeverAsksWhileThereIsTime)
{
    auto workspace = std::make_unique<DesktopWorkspace>(mainQueue, bus.connect(), false);
    std::jthread([&] { workspace->openFile(file); }).join();
    EXPECT_TRUE(opened.urls.empty());
    QCoreApplication::processEvents();
    workspace->openFile(file);
    workspace.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(opened.urls, ElementsAre(encodedFolder + "/a%20%FF%23%25.jpg"));
}

TEST_F(DesktopWorkspaceTest, HasTheFileBrowserOrThePortalShowTheFile)
{
    const FakeService browser(bus, "org.freedesktop.FileManager1", "/org/freedesktop/FileManager1");
    const FakeService portal(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    DesktopWorkspace outside(mainQueue, bus.connect(), false);
    DesktopWorkspace sandboxed(mainQueue, bus.connect(), true);
    outside.revealFile(file);
    sandboxed.revealFile(file);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !browser.calls().empty() && !portal.calls().empty(); }));
    const QDBusMessage show = browser.calls().first();
    EXPECT_EQ(show.member(), u"ShowItems");
    EXPECT_EQ(show.arguments().at(0).toStringList().join(u'|').toStdString(), encodedFolder + "/a%20%FF%23%25.jpg");
    const QDBusMessage open = portal.calls().first();
    EXPECT_EQ(open.member(), u"OpenDirectory");
    const int given = open.arguments().at(1).value<QDBusUnixFileDescriptor>().fileDescriptor();
    EXPECT_EQ(std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(given)),
              PathText::toBytes(file).toStdString());
    EXPECT_TRUE(opened.urls.empty());
}

TEST_F(DesktopWorkspaceTest, OpensTheFolderWhereNobodyCanSelect)
{
    for (const bool sandboxed : {false, true}) {
        DesktopWorkspace workspace(mainQueue, bus.connect(), sandboxed);
        opened.urls.clear();
        workspace.revealFile(file);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !opened.urls.empty(); }));
        EXPECT_THAT(opened.urls, ElementsAre(encodedFolder));
    }
}

#include "DesktopWorkspaceTest.moc"
