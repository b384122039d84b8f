#include "app/window/DesktopService.h"

#include "platform/files/PathText.h"
#include "support/FakeService.h"

#include <QCoreApplication>
#include <QDBusArgument>

#include <gtest/gtest.h>

#include <chrono>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

using Outcome = DesktopService::Outcome;

/// What a running program has been asked for, one text for each request.
class Program {
public:
    explicit Program(const SessionBus &bus, std::chrono::milliseconds hangTime = 60s) :
        service(bus.connect(), name(), requests(), hangTime)
    {
    }
    static QString name() { return u"org.tessarine.Tessarine"_s; }
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
    EXPECT_EQ(Program::startOn(bus, {u"/m/a.mp4"_s, odd}), Outcome::HandedOver);
    EXPECT_EQ(Program::startOn(bus, {}, {.token = "wayland-7", .startupId = "x_TIME7"}), Outcome::HandedOver);
    EXPECT_EQ(first.log, QStringList());
    first.service.setReady();
    EXPECT_EQ(Program::startOn(bus, {u"/m/b.mp4"_s}), Outcome::HandedOver);
    QCoreApplication::processEvents();
    EXPECT_EQ(first.log, (QStringList{u"open /m/a.mp4|" + odd, u"activatewayland-7 x_TIME7"_s, u"open /m/b.mp4"_s}));
    first.service.stop();
    Program second(bus);
    EXPECT_EQ(second.service.start({}), Outcome::First) << "it leaves its place when it quits";
    DesktopService lonely(QDBusConnection(u"never connected"_s), Program::name(), {});
    EXPECT_EQ(lonely.start({u"/m/a.mp4"_s}), Outcome::Alone);
}

TEST(DesktopServiceTest, AFirstThatIsFrozenOrHangsDoesNotHoldTheSecond)
{
    const SessionBus bus;
    {
        const FrozenService frozen(bus, "org.tessarine.Tessarine", "/org/tessarine/Tessarine");
        EXPECT_EQ(Program(bus).service.start({u"/m/a.mp4"_s}, {}, {.whenStopped = 0s, .whenBusy = 50ms}),
                  Outcome::Alone);
    }
    const SessionBus other;
    Program hangs(other, 0s);
    EXPECT_EQ(hangs.service.start({}), Outcome::First);
    hangs.service.setReady();
    EXPECT_EQ(Program::startOn(other, {u"/m/a.mp4"_s}), Outcome::HandedOver);
    EXPECT_EQ(Program::startOn(other, {u"/m/b.mp4"_s}), Outcome::Alone);
    QCoreApplication::processEvents();
    EXPECT_EQ(hangs.log, QStringList(u"open /m/a.mp4"_s));
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
    EXPECT_EQ(Program::startOn(bus, {u"/m/a b.mp4"_s}, token), Outcome::HandedOver);
    ASSERT_EQ(running.calls().size(), 1);
    const QDBusMessage open = running.calls().first();
    EXPECT_EQ(open.interface() + u' ' + open.member() + open.signature(), u"org.freedesktop.Application Openasa{sv}");
    EXPECT_EQ(open.arguments().at(0).toStringList().join(u' '), u"file:///m/a%20b.mp4");
    const auto platformData = qdbus_cast<QVariantMap>(open.arguments().at(1));
    EXPECT_EQ(platformData,
              (QVariantMap{{u"activation-token"_s, u"token-7"_s}, {u"desktop-startup-id"_s, u"host/7_TIME42"_s}}));
    ActivationToken::fromPlatformData({{u"desktop-startup-id"_s, u"8"_s}}).exportForWayland();
    EXPECT_EQ(qgetenv("XDG_ACTIVATION_TOKEN"), "8") << "from a launcher that has one name for both";
}

TEST(DesktopServiceTest, OnlyFilesOfThisMachineAreOpened)
{
    const SessionBus bus;
    Program program(bus);
    program.service.Open({u"http://host/a.mp4"_s}, {});
    program.service.Open({u"file://elsewhere/a.mp4"_s, u"FILE://localhost/m/b.mp4"_s, u"file:/m/c%zz%2"_s}, {});
    program.service.Open({u"file:///%00"_s, u"/m/d"_s, u"file:"_s, QString()}, {});
    program.service.setReady();
    EXPECT_EQ(program.log, QStringList(u"open /m/b.mp4|/m/c%zz%2"_s));
}
