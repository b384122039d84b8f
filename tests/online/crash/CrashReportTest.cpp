// Crashes of a real process, and what the next one makes of its report.
#include "online/crash/CrashReportSender.h"
#include "online/crash/CrashReportUtil.h"
#include "platform/store/Bundle.h"
#include "support/ScratchFolder.h"

#include <QProcess>
#include <QTimeZone>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;

#ifdef TESSARINE_SANITIZED
constexpr bool hasHandlers = false;
#else
constexpr bool hasHandlers = true;
#endif

struct CrashTest : testing::Test {
    void SetUp() override
    {
        if (!hasHandlers) {
            GTEST_SKIP() << "the sanitizers' own handlers are at work";
        }
        child.setProcessChannelMode(QProcess::ForwardedOutputChannel);
    }
    void start(const QStringList &arguments) { child.start(QStringLiteral(CRASH_CHILD), arguments); }
    /// The signal that the child ends by, and all that it has written to the log.
    std::pair<int, QByteArray> end()
    {
        EXPECT_TRUE(child.waitForFinished(-1));
        EXPECT_EQ(child.exitStatus(), QProcess::CrashExit);
        return {child.exitCode(), child.readAllStandardError()};
    }

    const ScratchFolder folder;
    const QString report = CrashReportUtil::getCrashReportObjectPath(folder.path());
    QProcess child;
};

TEST_F(CrashTest, IsRecordedOnceAndEndsByItsSignal)
{
    const QByteArray exception = "NAME:std::runtime_error\rREASON:it is broken\n";
    const QByteArray warning = "-------------注意：注意：发现未处理得异常！！！------------\n";
    const std::tuple<QString, int, QString, QByteArray> cases[] = {
        {u"null"_s, SIGSEGV, u"writeToNull() (CrashChild.cpp:"_s, warning},
        {u"worker-null"_s, SIGSEGV, u"writeToNull() (CrashChild.cpp:"_s, warning},
        {u"overflow"_s, SIGSEGV, u"recurse(int)"_s, warning},
        {u"worker-overflow"_s, SIGSEGV, u"recurse(int)"_s, warning},
        {u"divide"_s, SIGFPE, u"divideByZero()"_s, warning},
        {u"throw"_s, SIGABRT, u"throwError()"_s, exception},
        {u"worker-throw"_s, SIGABRT, u"throwError()"_s, exception},
        {u"throw-broken"_s, SIGABRT, u"CrashChild"_s, ""}, // it throws again while it is told of
        {u"abort"_s, SIGABRT, u"abort"_s, warning},
        {u"terminate"_s, SIGABRT, u"terminate"_s, warning},
        {u"no-memory"_s, SIGSEGV, u"crashWithoutMemory()"_s, warning},
        {u"worker-heap"_s, SIGABRT, u"breakHeap"_s, ""}, // gives up on the readable form
        {u"smash"_s, SIGSEGV, u"onSignal"_s, ""},        // to follow its stack is one more crash
        {u"two"_s, SIGSEGV, u"writeToNull()"_s, warning},
    };
    for (const auto &[mode, signal, frame, expectedLog] : cases) {
        SCOPED_TRACE(qPrintable(mode));
        folder.write("crash.info", "an older crash");
        start({mode, report});
        const auto [endedBy, log] = end();
        EXPECT_EQ(endedBy, signal);
        EXPECT_EQ(log.contains(exception), expectedLog == exception) << log.constData();
        EXPECT_EQ(log.count(warning), expectedLog.isEmpty() ? 0 : 1) << log.constData();
        EXPECT_EQ(folder.names(), QStringList{u"crash.info"_s});
        const auto record = CrashReportObject::initWithContentsOfFile(report);
        ASSERT_TRUE(record);
        EXPECT_TRUE(record->description().contains(frame)) << qPrintable(record->description());
        EXPECT_LE(record->stackArray.size(), 128);
    }
}

TEST_F(CrashTest, HasAHandlerForEverySignal)
{
    for (const int signal :
         {SIGQUIT, SIGILL, SIGTRAP, SIGABRT, SIGFPE, SIGBUS, SIGSEGV, SIGSYS, SIGPIPE, SIGALRM, SIGXCPU, SIGXFSZ}) {
        SCOPED_TRACE(signal);
        start({u"raise"_s, report, QString::number(signal)});
        EXPECT_EQ(end().first, signal);
        EXPECT_TRUE(::unlink(folder.bytes("crash.info").constData()) == 0);
    }
}

TEST_F(CrashTest, EndsTheProcessWhereNothingCanBeWritten)
{
    folder.makeFolder("crash.info/in use");
    for (const QString &path : {report, u"/proc/nowhere/crash.info"_s}) {
        start({u"null"_s, path});
        EXPECT_EQ(end().first, SIGSEGV);
    }
    EXPECT_EQ(folder.names(), QStringList{u"crash.info"_s});
}

TEST(CrashReportObject, WritesWhatItReadsInAFixedOrder)
{
    const ScratchFolder folder;
    const auto record =
        CrashReportObject::initWithCrashDate(QDateTime::fromMSecsSinceEpoch(1709209845007, QTimeZone::utc()),
                                             {u"a \"frame\" \\ 帧"_s, u"\n\t\x1f"_s}, Bundle::main(), u"\"\\\x01"_s);
    for (const CrashReportObject &written : {CrashReportObject(), record}) {
        ASSERT_TRUE(written.writeToFile(folder.path("documents/crash.info")));
        EXPECT_EQ(CrashReportObject::initWithContentsOfFile(folder.path("documents/crash.info")), written);
    }
    const QByteArray text = folder.read("documents/crash.info");
    EXPECT_TRUE(text.contains("2024-02-29T12:30:45.007Z") && !text.contains("\"version\""));
}

struct Delegate : CrashReportSenderDelegate {
    MOCK_METHOD(void, handleCrashReport, (const std::optional<CrashReportObject> &report), (override));
};

TEST(CrashReportSender, HandsOnAnyReportAndDeletesIt)
{
    const ScratchFolder folder;
    const QByteArray path = folder.bytes("crash.info");
    CrashReportSender sender(folder.path("crash.info"), {});
    testing::StrictMock<Delegate> delegate;
    sender.handleCrashReport(&delegate); // of nothing
    const std::function<void()> unreadable[] = {
        [&] { folder.write("crash.info", "\xFF{\"osName\": 1"); },
        [&] { folder.write("crash.info", QByteArray("{\"a\":[").repeated(100000)); },
        [&] { EXPECT_EQ(::truncate((folder.write("crash.info"), path.constData()), 1L << 30), 0); },
        [&] { EXPECT_EQ(::mkfifo(path.constData(), 0600), 0); },
        [&] { folder.makeFolder("crash.info"); },
        [&] { folder.link("nowhere", "crash.info"); },
    };
    for (const auto &make : unreadable) {
        make();
        EXPECT_TRUE(sender.hasPendingCrashReport());
        EXPECT_CALL(delegate, handleCrashReport(testing::Eq(std::nullopt)));
        sender.handleCrashReport(nullptr);
        sender.handleCrashReport(&delegate);
        sender.noticeHandleCrashReportSuccess();
        EXPECT_FALSE(sender.hasPendingCrashReport());
    }
    folder.write("crash.info/precious");
    sender.noticeHandleCrashReportSuccess();
    EXPECT_TRUE(folder.has("crash.info/precious"));
}
