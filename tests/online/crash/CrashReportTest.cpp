// Crashes of a real process, and what the next one makes of its report.
#include "online/crash/CrashReportSender.h"
#include "online/crash/CrashReportSenderDelegate.h"
#include "online/crash/CrashReportUtil.h"
#include "platform/store/Bundle.h"
#include "support/CapturedLog.h"
#include "support/HttpServer.h"
#include "support/ScratchFolder.h"

#include <QProcess>
#include <QTest>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// The signal that the child ends by, and all that it has written to the log.
std::pair<int, QByteArray> crash(const QString &mode, const QString &report)
{
    QProcess child;
    child.start(QStringLiteral(CRASH_CHILD), {mode, report});
    EXPECT_TRUE(child.waitForFinished(-1));
    EXPECT_EQ(child.exitStatus(), QProcess::CrashExit);
    return {child.exitCode(), child.readAllStandardError()};
}

TEST(CrashReportSingal, RecordsOnceAndEndsByTheSignal)
{
#ifdef TESSARINE_SANITIZED
    GTEST_SKIP() << "the sanitizers' own handlers are at work";
#endif
    const QByteArray exception = "NAME:std::runtime_error\rREASON:it is broken\n";
    const QByteArray warning = "-------------注意：注意：发现未处理得异常！！！------------\n";
    const std::tuple<QString, int, QString> cases[] = {
        {u"null"_s, SIGSEGV, u" _Z11writeToNullv\n"_s},
        {u"overflow"_s, SIGSEGV, u" _Z7recursei\n"_s},
        {u"worker-overflow"_s, SIGSEGV, u" _Z7recursei\n"_s},
        {u"throw"_s, SIGABRT, u" _Z10throwErrorv\n"_s},
        {u"throw-broken"_s, SIGABRT, u"online_crash_child+0x"_s}, // it throws again while it is told of
        {u"terminate"_s, SIGABRT, u" _ZSt9terminatev\n"_s},
        {u"worker-heap"_s, SIGABRT, u" _Z9breakHeapv\n"_s},
        {u"smash"_s, SIGSEGV, u"online_crash_child+0x"_s}, // to follow its stack is one more crash
        {u"two"_s, SIGSEGV, u" _Z11writeToNullv\n"_s},
    };
    const ScratchFolder folder;
    const QString report = CrashReportUtil::getCrashReportObjectPath(folder.path());
    for (const auto &[mode, signal, frame] : cases) {
        SCOPED_TRACE(qPrintable(mode));
        folder.write("crash.info", "an older crash");
        const auto [endedBy, log] = crash(mode, report);
        EXPECT_EQ(endedBy, signal);
        EXPECT_EQ(log.contains(exception), mode.endsWith(u"throw")) << log.constData();
        EXPECT_EQ(log.count(warning), mode == u"throw-broken" || mode == u"smash" ? 0 : 1) << log.constData();
        EXPECT_EQ(folder.names(), QStringList{u"crash.info"_s});
        const auto record = CrashReportObject::initWithContentsOfFile(report);
        ASSERT_TRUE(record);
        EXPECT_EQ(record->deviceUniqueIdentifier, u"GUID \"1\"");
        EXPECT_TRUE(record->version.isNull() && record->date.isValid());
        EXPECT_TRUE(record->description().contains(frame)) << qPrintable(record->description());
        EXPECT_LE(record->stackArray.size(), 128);
    }
    for (const int signal : {SIGQUIT, SIGILL, SIGTRAP, SIGFPE, SIGBUS, SIGSYS, SIGPIPE, SIGALRM, SIGXCPU, SIGXFSZ}) {
        EXPECT_EQ(crash(QString::number(signal), report).first, signal);
        EXPECT_EQ(::unlink(folder.bytes("crash.info").constData()), 0) << signal;
    }
    folder.makeFolder("crash.info/in use");
    EXPECT_EQ(crash(u"null"_s, report).first, SIGSEGV);
    EXPECT_EQ(folder.names(), QStringList{u"crash.info"_s});
}

struct Delegate : CrashReportSenderDelegate {
    MOCK_METHOD(void, handleCrashReport, (const std::optional<CrashReportObject> &report), (override));
    std::optional<QString> createReportContentByReportInfo(const std::optional<CrashReportObject> &report) override
    {
        return report.value().description();
    }
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
        sender.handleCrashReport(&delegate);
        sender.noticeHandleCrashReportSuccess();
        EXPECT_FALSE(sender.hasPendingCrashReport());
    }
    folder.write("crash.info/precious");
    sender.noticeHandleCrashReportSuccess();
    EXPECT_TRUE(folder.has("crash.info/precious"));
}

TEST(CrashReportUpload, KeepsTheReportUntilTheServerHasIt)
{
    const std::tuple<HttpServer::Respond, std::chrono::milliseconds, bool> cases[] = {
        {HttpServer::saying("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n"), 20s, true}, // it has said that it has it
        {HttpServer::answering("", "400 Bad"), 20s, false},
        {HttpServer::silent, 200ms, false},
    };
    for (const auto &[respond, patience, isReceived] : cases) {
        const ScratchFolder folder;
        const CapturedLog log;
        const HttpServer server(respond);
        NotificationCenter notifications;
        Delegate delegate;
        CrashReportUpload upload(folder.path("crash.info"), notifications, 1ms, patience);
        CrashReportObject report;
        report.stackArray = QStringList{u"main"_s, u"a \"frame\" \\ 栈\t\x1f"_s};
        EXPECT_TRUE(report.writeToFile(folder.path("crash.info")));
        upload.sendCrashReportToURL(QUrl(u"http://superseded.invalid"_s), &delegate);
        upload.sendCrashReportToURL(QUrl(server.url() + u"/crash"), &delegate);
        EXPECT_TRUE(QTest::qWaitFor([] { return CapturedLog::lines.join(u' ').contains(u"送CRASH报告"); }, 30'000));
        EXPECT_NE(folder.has("crash.info"), isReceived);
        EXPECT_TRUE(server.requests.value(0).contains("POST /crash HTTP/1.1\r\n"));
        EXPECT_TRUE(server.requests.value(0).endsWith("\r\n\r\nSTACK:\nmain\na \"frame\" \\ 栈\t\x1f\n"));
    }
}
