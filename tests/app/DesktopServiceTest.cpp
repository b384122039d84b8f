#include "app/DesktopService.h"

#include "platform/FileUri.h"
#include "platform/PathText.h"
#include "support/SessionBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QEventLoop>

#include <gtest/gtest.h>

#include <thread>

using namespace std::chrono_literals;

namespace {

using Outcome = DesktopService::Outcome;

/// What a running program has been asked for, one text for each request.
class Program {
public:
    explicit Program(const SessionBus &bus) : service(bus.connect(), name(), requests()) {}

    static QString name() { return QStringLiteral("org.tessarine.Tessarine"); }

    QStringList log;
    DesktopService service;

private:
    DesktopService::Requests requests()
    {
        return {.open = [this](const QStringList &paths) { log += u"open " + paths.join(u'|'); },
                .activate = [this] { log += QStringLiteral("activate"); }};
    }
};

/// Another program starts, with a connection and a thread of its own, while this one's event loop runs.
Outcome startElsewhere(const SessionBus &bus, const QStringList &paths)
{
    Outcome outcome = Outcome::Alone;
    QEventLoop loop;
    std::jthread starter([&] {
        outcome = Program(bus).service.start(paths, 60s);
        QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
    });
    loop.exec();
    starter.join();
    return outcome;
}

TEST(DesktopServiceTest, ASecondStartHandsOverAndNothingIsLostBeforeTheWindowIsReady)
{
    const SessionBus bus;
    Program first(bus);
    EXPECT_EQ(first.service.start({}), Outcome::First);
    const QString odd = PathText::fromBytes("/m/100%25 \xff#?\n\xE7\x94\xB5.mkv");
    EXPECT_EQ(startElsewhere(bus, {QStringLiteral("/m/a.mp4"), odd}), Outcome::HandedOver);
    EXPECT_EQ(startElsewhere(bus, {}), Outcome::HandedOver);
    EXPECT_EQ(first.log, QStringList());

    first.service.setReady();
    const QStringList kept{u"open /m/a.mp4|" + odd, QStringLiteral("activate")};
    EXPECT_EQ(first.log, kept);
    EXPECT_EQ(startElsewhere(bus, {QStringLiteral("/m/b.mp4")}), Outcome::HandedOver);
    EXPECT_EQ(first.log.mid(2), QStringList(QStringLiteral("open /m/b.mp4")));
}

TEST(DesktopServiceTest, AFrozenFirstDoesNotHoldTheSecond)
{
    const SessionBus bus;
    Program first(bus);
    EXPECT_EQ(first.service.start({}), Outcome::First);
    Program second(bus); // on this very thread: the first cannot answer meanwhile
    EXPECT_EQ(second.service.start({QStringLiteral("/m/a.mp4")}, 50ms), Outcome::Alone);
    EXPECT_EQ(second.log, QStringList());
}

TEST(DesktopServiceTest, AFirstThatQuitsLeavesItsPlaceAndNoBusIsNoHindrance)
{
    const SessionBus bus;
    Program first(bus);
    EXPECT_EQ(first.service.start({}), Outcome::First);
    first.service.stop();
    Program second(bus);
    EXPECT_EQ(second.service.start({}), Outcome::First);

    DesktopService lonely(QDBusConnection(QStringLiteral("never connected")), Program::name(), {});
    EXPECT_EQ(lonely.start({QStringLiteral("/m/a.mp4")}), Outcome::Alone);
}

/// Stands for a running program, and keeps what it is sent.
class Owner : public QDBusVirtualObject {
public:
    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        received = message;
        return connection.send(message.createReply());
    }

    QDBusMessage received;
};

TEST(DesktopServiceTest, CallsAreThoseThatEveryDesktopProgramUnderstands)
{
    const SessionBus bus;
    QDBusConnection connection = bus.connect();
    Owner owner;
    ASSERT_TRUE(connection.registerVirtualObject(QStringLiteral("/org/tessarine/Tessarine"), &owner));
    ASSERT_TRUE(connection.registerService(Program::name()));
    qputenv("XDG_ACTIVATION_TOKEN", "token-7");
    EXPECT_EQ(startElsewhere(bus, {QStringLiteral("/m/a b.mp4")}), Outcome::HandedOver);
    EXPECT_EQ(owner.received.interface(), QStringLiteral("org.freedesktop.Application"));
    EXPECT_EQ(owner.received.member(), QStringLiteral("Open"));
    EXPECT_EQ(owner.received.signature(), QStringLiteral("asa{sv}"));
    EXPECT_EQ(owner.received.arguments().value(0).toStringList(), QStringList(QStringLiteral("file:///m/a%20b.mp4")));
    const auto platformData = qdbus_cast<QVariantMap>(owner.received.arguments().value(1));
    EXPECT_EQ(platformData.value(QStringLiteral("activation-token")).toString(), QStringLiteral("token-7"));
    EXPECT_EQ(startElsewhere(bus, {}), Outcome::HandedOver);
    EXPECT_EQ(owner.received.member() + owner.received.signature(), QStringLiteral("Activatea{sv}"));
    qunsetenv("XDG_ACTIVATION_TOKEN");
}

TEST(DesktopServiceTest, OnlyFilesOfThisMachineAreOpened)
{
    const SessionBus bus;
    Program program(bus);
    program.service.setReady();
    program.service.Open({QStringLiteral("http://host/a.mp4")}, {});
    EXPECT_EQ(program.log, QStringList());
    program.service.Open({QStringLiteral("file://elsewhere/a.mp4"), QStringLiteral("FILE://localhost/m/b.mp4"),
                          QStringLiteral("file:/m/c%zz%2"), QStringLiteral("file:///%00"), QStringLiteral("/m/d"),
                          QStringLiteral("file:"), QString()},
                         {});
    EXPECT_EQ(program.log, QStringList(QStringLiteral("open /m/b.mp4|/m/c%zz%2")));
}

} // namespace
