#include "online/crash/CrashReportSender.h"
#include "support/CapturedLog.h"
#include "support/HttpServer.h"
#include "support/ScratchFolder.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

struct TextDelegate : CrashReportSenderDelegate {
    void handleCrashReport(const std::optional<CrashReportObject> & /*report*/) override {}
    std::optional<QString> createReportContentByReportInfo(const std::optional<CrashReportObject> &report) override
    {
        return report.value().description();
    }
};

TEST(CrashReportUpload, KeepsTheReportUntilTheServerHasIt)
{
    const std::tuple<HttpServer::Respond, std::chrono::milliseconds, bool> cases[] = {
        {HttpServer::answering(""), 20s, true},
        {HttpServer::saying("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n"), 20s, true}, // it has said that it has it
        {HttpServer::answering("", "400 Bad"), 20s, false},
        {HttpServer::saying(""), 20s, false},
        {HttpServer::silent, 200ms, false},
    };
    for (const auto &[respond, patience, isReceived] : cases) {
        const ScratchFolder folder;
        const CapturedLog log;
        const HttpServer server(respond);
        NotificationCenter notifications;
        TextDelegate delegate;
        CrashReportUpload upload(folder.path("crash.info"), notifications, {1ms, patience});
        upload.sendCrashReportToURL(QUrl(server.url()), &delegate); // nothing pending
        CrashReportObject report;
        report.stackArray = QStringList{u"main"_s, u"栈"_s};
        EXPECT_TRUE(report.writeToFile(folder.path("crash.info")));
        upload.sendCrashReportToURL(QUrl(u"http://superseded.invalid"_s), &delegate);
        upload.sendCrashReportToURL(QUrl(server.url() + u"/crash"), &delegate);
        EXPECT_TRUE(QTest::qWaitFor([] { return CapturedLog::lines.join(u' ').contains(u"送CRASH报告"); }, 30'000));
        EXPECT_NE(folder.has("crash.info"), isReceived);
        EXPECT_TRUE(server.requests.value(0).contains("POST /crash HTTP/1.1\r\n"));
        EXPECT_TRUE(server.requests.value(0).endsWith("\r\n\r\nSTACK:\nmain\n栈\n"));
    }
}
