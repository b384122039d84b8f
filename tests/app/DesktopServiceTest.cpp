#include "app/DesktopService.h"

#include "platform/FileUri.h"
#include "platform/PathText.h"
#include "support/FakeService.h"

#include <QDBusArgument>
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

TEST(DesktopServiceTest, CallsAreThoseThatEveryDesktopProgramUnderstands)
{
    const SessionBus bus;
    const FakeService running(bus, "org.tessarine.Tessarine", "/org/tessarine/Tessarine");
    qputenv("XDG_ACTIVATION_TOKEN", "token-7");
    EXPECT_EQ(Program(bus).service.start({QStringLiteral("/m/a b.mp4")}), Outcome::HandedOver);
    EXPECT_EQ(Program(bus).service.start({}), Outcome::HandedOver);
    qunsetenv("XDG_ACTIVATION_TOKEN");
    ASSERT_EQ(running.calls().size(), 2);
    const QDBusMessage open = running.calls().first();
    EXPECT_EQ(open.interface(), u"org.freedesktop.Application");
    EXPECT_EQ(open.member() + open.signature(), u"Openasa{sv}");
    EXPECT_EQ(open.arguments().at(0).toStringList().join(u' '), u"file:///m/a%20b.mp4");
    const auto platformData = qdbus_cast<QVariantMap>(open.arguments().at(1));
    EXPECT_EQ(platformData.value(QStringLiteral("activation-token")).toString(), u"token-7");
    EXPECT_EQ(running.calls().last().member() + running.calls().last().signature(), u"Activatea{sv}");
}

TEST(DesktopServiceTest, OnlyFilesOfThisMachineAreOpened)
{
    const SessionBus bus;
    Program program(bus);
    program.service.setReady();
    program.service.Open({u"http://host/a.mp4"_qs}, {});
    EXPECT_EQ(program.log, QStringList());
    program.service.Open({u"file://elsewhere/a.mp4"_qs, u"FILE://localhost/m/b.mp4"_qs, u"file:/m/c%zz%2"_qs,
                          u"file:///%00"_qs, u"/m/d"_qs, u"file:"_qs, QString()},
                         {});
    EXPECT_EQ(program.log, QStringList(u"open /m/b.mp4|/m/c%zz%2"_qs));
}

} // namespace
