#include "desktop/AccessibilityBus.h"

#include <QDBusMessage>
#include <QDBusVariant>

AccessibilityBus::AccessibilityBus(const SessionBus &sessionBus) :
    address(sessionBus.address()), bus(sessionBus.connect())
{
    moveToThread(&thread);
    thread.start();
    EXPECT_TRUE(bus.registerVirtualObject(QStringLiteral("/org/a11y/bus"), this));
    EXPECT_TRUE(bus.registerService(QStringLiteral("org.a11y.Bus")));
}

AccessibilityBus::~AccessibilityBus()
{
    bus.unregisterObject(QStringLiteral("/org/a11y/bus"));
    thread.quit();
    thread.wait();
}

QString AccessibilityBus::introspect(const QString & /*path*/) const
{
    return {};
}

/// Programs ask whether somebody listens, and where.
bool AccessibilityBus::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    const bool asksWhere = message.member() == u"GetAddress";
    return connection.send(
        message.createReply(asksWhere ? QVariant(address) : QVariant::fromValue(QDBusVariant(QVariant(true)))));
}
