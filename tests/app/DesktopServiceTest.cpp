#include "app/DesktopService.h"

#include "platform/PathText.h"
#include "support/FakeService.h"

#include <QCoreApplication>
#include <QDBusArgument>

#include <gtest/gtest.h>

#include <chrono>

using namespace std::chrono_literals;

using Outcome = DesktopService::Outcome;

/// What a running program has been asked for, one text for each request.
class Program {
public:
    explicit Program(const SessionBus &bus, std::chrono::milliseconds hangTime = 60s) :
        service(bus.connect(), name(), requests(), hangTime)
    {
    }
    static QString name() { return QStringLiteral("org.tessarine.Tessarine"); }
    /// As another program, while this one's main thread is busy.
    static Outcome startOn(const SessionBus &bus, const QStringList &paths, const ActivationToken &token = {})
    {
        return Program(bus).service.start(paths, token, {.whenBusy = 60s});
    }
    QStringList log;
    DesktopService service;

private:
    DesktopService::Requests requests()
    {
        return {.open = [this](const QStringList &paths,
                               const ActivationToken &token) { log += u"open " + paths.join(u'|') + text(token); },
                .activate = [this](const ActivationToken &token) { log += u"activate" + text(token); }};
    }
    static QString text(const ActivationToken &token)
    {
        return QString::fromUtf8(' ' + token.token + ' ' + token.startupId).trimmed();
    }
};

TEST(DesktopServiceTest, ASecondStartHandsOverWhateverTheFirstIsBusyWithAndNothingIsLost)
{
    const SessionBus bus;
    Program first(bus);
    EXPECT_EQ(first.service.start({}), Outcome::First);
    const QString odd = PathText::fromBytes("/m/100%25 \xff#?\n\xE7\x94\xB5.mkv");
    EXPECT_EQ(Program::startOn(bus, {QStringLiteral("/m/a.mp4"), odd}), Outcome::HandedOver);
    EXPECT_EQ(Program::startOn(bus, {}, {.token = "wayland-7", .startupId = "x_TIME7"}), Outcome::HandedOver);
    EXPECT_EQ(first.log, QStringList());
    first.service.setReady();
    EXPECT_EQ(Program::startOn(bus, {u"/m/b.mp4"_qs}), Outcome::HandedOver);
    QCoreApplication::processEvents();
    EXPECT_EQ(first.log, (QStringList{u"open /m/a.mp4|" + odd, u"activatewayland-7 x_TIME7"_qs, u"open /m/b.mp4"_qs}));
}

TEST(DesktopServiceTest, AFirstThatIsFrozenOrHangsDoesNotHoldTheSecond)
{
    const SessionBus bus;
    {
        const FrozenService frozen(bus, "org.tessarine.Tessarine", "/org/tessarine/Tessarine");
        EXPECT_EQ(Program(bus).service.start({QStringLiteral("/m/a.mp4")}, {}, {.whenStopped = 0s, .whenBusy = 50ms}),
                  Outcome::Alone);
    }
    const SessionBus other;
    Program hangs(other, 0s);
    EXPECT_EQ(hangs.service.start({}), Outcome::First);
    hangs.service.setReady();
    EXPECT_EQ(Program::startOn(other, {QStringLiteral("/m/a.mp4")}), Outcome::HandedOver);
    EXPECT_EQ(Program::startOn(other, {QStringLiteral("/m/b.mp4")}), Outcome::Alone);
    QCoreApplication::processEvents();
    EXPECT_EQ(hangs.log, QStringList(QStringLiteral("open /m/a.mp4")));
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
    qputenv("DESKTOP_STARTUP_ID", "host/7_TIME42");
    const ActivationToken token = ActivationToken::ofThisStart();
    ActivationToken::clearEnvironment();
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN") + qgetenv("DESKTOP_STARTUP_ID"), "") << "what children would see";
    EXPECT_EQ(token.time(), 42);
    EXPECT_EQ(Program::startOn(bus, {QStringLiteral("/m/a b.mp4")}, token), Outcome::HandedOver);
    ASSERT_EQ(running.calls().size(), 1);
    const QDBusMessage open = running.calls().first();
    EXPECT_EQ(open.interface(), u"org.freedesktop.Application");
    EXPECT_EQ(open.member() + open.signature(), u"Openasa{sv}");
    EXPECT_EQ(open.arguments().at(0).toStringList().join(u' '), u"file:///m/a%20b.mp4");
    const auto platformData = qdbus_cast<QVariantMap>(open.arguments().at(1));
    EXPECT_EQ(platformData.value(QStringLiteral("activation-token")).toString(), u"token-7");
    EXPECT_EQ(platformData.value(QStringLiteral("desktop-startup-id")).toString(), u"host/7_TIME42");
}

TEST(DesktopServiceTest, OnlyFilesOfThisMachineAreOpened)
{
    const SessionBus bus;
    Program program(bus);
    program.service.Open({u"http://host/a.mp4"_qs}, {});
    program.service.Open({u"file://elsewhere/a.mp4"_qs, u"FILE://localhost/m/b.mp4"_qs, u"file:/m/c%zz%2"_qs,
                          u"file:///%00"_qs, u"/m/d"_qs, u"file:"_qs, QString()},
                         {});
    program.service.setReady();
    EXPECT_EQ(program.log, QStringList(u"open /m/b.mp4|/m/c%zz%2"_qs));
}
