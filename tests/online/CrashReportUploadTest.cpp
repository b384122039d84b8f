#include "online/CrashReportSender.h"
#include "support/CapturedLog.h"
#include "support/HttpServer.h"
#include "support/ScratchFolder.h"

#include <QTest>

using namespace std::chrono_literals;

struct TextDelegate : CrashReportSenderDelegate {
    void handleCrashReport(const std::optional<CrashReportObject> & /*report*/) override {}
    std::optional<QString> createReportContentByReportInfo(const std::optional<CrashReportObject> &report) override
    {
        return makesTexts ? report.value().description() : std::optional<QString>();
    }
    bool makesTexts = true;
};

TEST(CrashReportUpload, KeepsTheReportUntilTheServerHasIt)
{
    const QString yes = QStringLiteral("发送CRASH报告成功，删除本机报告文件...");
    const QString no = QStringLiteral("服务器未正常响应，发送CRASH报告失败，下次再发送...");
    const QString mute =
        QStringLiteral("CRASH REPORT DELEGATE 需实现 createReportContentByReportInfo 方法，发送失败。");
    const struct {
        HttpServer::Respond respond;
        QString line;
        std::chrono::milliseconds patience = 20s;
    } cases[] = {
        {HttpServer::answering(""), yes},
        {HttpServer::saying("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n"), yes}, // it has said that it has it
        {HttpServer::answering("", "400 Bad"), no},
        {HttpServer::saying(""), no},
        {HttpServer::silent, no, 200ms},
        {HttpServer::answering(""), mute},
    };
    for (const auto &[respond, line, patience] : cases) {
        const ScratchFolder folder;
        const CapturedLog log;
        const HttpServer server(respond);
        NotificationCenter notifications;
        TextDelegate delegate;
        delegate.makesTexts = line != mute;
        CrashReportUpload upload(folder.path("crash.info"), notifications, {1ms, patience});
        upload.sendCrashReportToURL(QUrl(server.url()), &delegate); // nothing pending
        CrashReportObject report;
        report.stackArray = QStringList{u"main"_qs, u"栈"_qs};
        EXPECT_TRUE(report.writeToFile(folder.path("crash.info")));
        upload.sendCrashReportToURL(QUrl(u"http://superseded.invalid"_qs), &delegate);
        upload.sendCrashReportToURL(QUrl(server.url() + u"/crash"), &delegate);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                notifications.post(u"kNetworkReachabilityChangedNotification"_qs); // heard by an upload that waits
                return CapturedLog::lines.contains(line);
            },
            30'000));
        EXPECT_EQ(folder.has("crash.info"), line != yes);
        EXPECT_EQ(server.requests.value(0).contains("POST /crash HTTP/1.1\r\n"), delegate.makesTexts);
        EXPECT_EQ(server.requests.value(0).endsWith("\r\n\r\nSTACK:\nmain\n栈\n"), delegate.makesTexts);
    }
}
