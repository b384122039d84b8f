#include "platform/desktop/DesktopNotification.h"

#include "support/FakeService.h"

#include <QDBusArgument>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

struct DesktopNotificationTest : testing::Test {
    const SessionBus bus;
    std::vector<QByteArray> clicks;
    DesktopNotification notificationOf(bool sandboxed)
    {
        return {bus.connect(), u"org.example.Program"_s, sandboxed,
                [this](const ActivationToken &click) { clicks.push_back(click.token); }};
    }
};

TEST_F(DesktopNotificationTest, ShowsOneMessageAtATimeAndHearsItsClickOnly)
{
    const char *name = "org.freedesktop.Notifications";
    const FakeService service(bus, name, "/org/freedesktop/Notifications", {{u"Notify"_s, 7U}});
    DesktopNotification notification = notificationOf(false);
    notification.show(u"Title"_s, u"1 < 2"_s, QImage(1000, 500, QImage::Format_RGB32));
    ASSERT_TRUE(QTest::qWaitFor([&] { return service.calls().size() == 1; }));
    const QVariantList first = service.calls().constFirst().arguments();
    EXPECT_EQ(first.at(1).toUInt(), 0U);
    EXPECT_EQ(first.at(4).toString(), u"1 &lt; 2"_s);
    const auto hints = qdbus_cast<QVariantMap>(first.at(6));
    EXPECT_EQ(hints.value(u"image-data"_s).value<QDBusArgument>().currentSignature(), u"(iiibiiay)"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] {
        notification.show(u"Title"_s, u"again"_s, {});
        return service.calls().constLast().arguments().at(1).toUInt() == 7U;
    }));
    service.emitSignal(name, "ActivationToken", {7U, u"token"_s});
    service.emitSignal(name, "ActionInvoked", {8U, u"default"_s});
    service.emitSignal(name, "ActionInvoked", {7U, u"default"_s});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !clicks.empty(); }));
    EXPECT_EQ(clicks, (std::vector<QByteArray>{"token"}));
}

TEST_F(DesktopNotificationTest, ReachesTheDesktopThroughThePortalInASandbox)
{
    const char *name = "org.freedesktop.portal.Notification";
    const FakeService portal(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop");
    DesktopNotification notification = notificationOf(true);
    notification.show(u"Title"_s, u"text"_s, QImage(4, 4, QImage::Format_RGB32));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.calls().empty(); }));
    const QVariantList arguments = portal.calls().constFirst().arguments();
    const auto message = qdbus_cast<QVariantMap>(arguments.at(1));
    EXPECT_EQ(message.value(u"body"_s).toString(), u"text"_s);
    EXPECT_EQ(message.value(u"icon"_s).value<QDBusArgument>().currentSignature(), u"(sv)"_s);
    portal.emitSignal(
        name, "ActionInvoked",
        {arguments.at(0), u"default"_s, QVariantList{QVariantMap{{u"activation-token"_s, u"portal's"_s}}}});
    ASSERT_TRUE(QTest::qWaitFor([&] { return !clicks.empty(); }));
    EXPECT_EQ(clicks.front(), "portal's");
}
