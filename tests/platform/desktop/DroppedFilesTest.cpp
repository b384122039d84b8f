#include "platform/desktop/DroppedFiles.h"

#include "platform/files/PathText.h"
#include "support/CapturedLog.h"
#include "support/FakeService.h"

#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

#include <array>
#include <optional>

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr const char *portalName = "org.freedesktop.portal.Documents";
constexpr const char *portalPath = "/org/freedesktop/portal/documents";

struct Drag : QMimeData {
    Drag(const QByteArray &uris, const QByteArray &key, const QString &keyFormat = u"filetransfer"_s)
    {
        setData(u"text/uri-list"_s, uris);
        if (!key.isNull()) {
            setData(u"application/vnd.portal."_s + keyFormat, key);
        }
    }
};

/// What the taker has been given, in one text.
static QString fetched(const DroppedFiles &files, const QMimeData &data)
{
    std::optional<QString> answer;
    QObject receiver;
    files.fetch(data, receiver, [&answer](const QStringList &paths) { answer = paths.join(u'|'); });
    EXPECT_TRUE(QTest::qWaitFor([&] { return answer.has_value(); }));
    return answer.value_or(u"nothing"_s);
}

TEST(DroppedFilesTest, ThePortalIsAskedWhereNamesLeadNowhere)
{
    const SessionBus bus;
    const FakeService portal(
        bus, portalName, portalPath,
        {{u"RetrieveFiles"_s, QStringList{u"/doc/1/a b.mkv"_s, u"relative"_s, u"/doc/2/\u7535"_s}}});
    const QString lent = u"/doc/1/a b.mkv|/doc/2/\u7535"_s;
    const DroppedFiles inside(bus.connect(), true);
    const DroppedFiles outside(bus.connect(), false);
    EXPECT_EQ(fetched(inside, Drag("file:///host/a", QByteArray("key-1\0", 6))), lent);
    EXPECT_EQ(fetched(inside, Drag("", "key-2", u"files"_s)), lent);
    EXPECT_EQ(fetched(inside, Drag("file:///host/%FF\r\nhttp://b", {})), PathText::fromBytes("/host/\xff"));
    EXPECT_EQ(fetched(outside, Drag("file:///host/a", "key-3")), u"/host/a");
    EXPECT_EQ(fetched(outside, Drag("http://host/a", "key-4")), lent);
    ASSERT_EQ(portal.calls().size(), 3);
    const QDBusMessage call = portal.calls().first();
    EXPECT_EQ(call.interface() + u' ' + call.signature(), u"org.freedesktop.portal.FileTransfer sa{sv}");
    EXPECT_EQ(call.arguments().first(), u"key-1"_s);
}

TEST(DroppedFilesTest, APortalThatFailsLeavesTheNames)
{
    const Drag drag("file:///host/a", "key");
    const std::array<SessionBus, 3> buses;
    const FakeService wrong(buses[1], portalName, portalPath, {{u"RetrieveFiles"_s, 7}});
    const FrozenService frozen(buses[2], portalName, portalPath);
    for (const SessionBus &bus : buses) {
        const CapturedLog log;
        EXPECT_EQ(fetched(DroppedFiles(bus.connect(), true, 50ms), drag), u"/host/a");
        EXPECT_EQ(CapturedLog::lines.size(), 1);
    }
    EXPECT_EQ(fetched(DroppedFiles(), drag), u"/host/a") << "no bus";
    const DroppedFiles files(buses[1].connect(), true);
    {
        QObject gone;
        files.fetch(drag, gone, [](const QStringList &) { FAIL(); });
    }
    EXPECT_EQ(fetched(files, drag), u"/host/a");
}
