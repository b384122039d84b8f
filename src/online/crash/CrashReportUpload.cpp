#include "online/crash/CrashReportUpload.h"

#include "online/crash/CrashReportSenderDelegate.h"
#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <cstdio>

using namespace Qt::StringLiterals;

CrashReportUpload::CrashReportUpload(const QString &reportPath, NotificationCenter &notifications,
                                     std::chrono::milliseconds delay, std::chrono::milliseconds patience) :
    path(reportPath), center(notifications), answerTime(patience)
{
    submission.setInterval(delay);
    submission.setSingleShot(true);
    submission.callOnTimeout([this] { submit(); });
}

void CrashReportUpload::sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate)
{
    if (!FileSystem::isTaken(path)) {
        return;
    }
    target = url;
    reportDelegate = delegate;
    if (!submission.isActive()) {
        submission.start();
    }
}

void CrashReportUpload::submit()
{
    exchange.reset();
    networkChange.reset();
    if (target.host().isEmpty()) {
        waitForNetwork();
        return;
    }
    lookup.emplace(target.host(), [this](const HostAddresses &addresses) {
        if (!addresses.error.isEmpty()) {
            waitForNetwork();
        } else if (FileSystem::isTaken(path)) {
            send();
        }
    });
}

void CrashReportUpload::waitForNetwork()
{
    if (!watch) {
        watch.emplace(center);
    }
    networkChange = center.observe(NetworkWatch::changed, [this] {
        networkChange.reset();
        submit();
    });
}

void CrashReportUpload::send()
{
    const auto content =
        reportDelegate == nullptr
            ? std::nullopt
            : reportDelegate->createReportContentByReportInfo(CrashReportObject::initWithContentsOfFile(path));
    if (!content) {
        qCWarning(lcTessarine).noquote()
            << u"CRASH REPORT DELEGATE 需实现 createReportContentByReportInfo 方法，发送失败。";
        return;
    }
    qCInfo(lcTessarine).noquote() << u"send crash report:\n"_s + *content;
    exchange.emplace(
        HttpRequest{target, content->toUtf8()}, [this](const HttpAnswer &answer) { takeAnswer(answer); }, answerTime);
}

void CrashReportUpload::takeAnswer(const HttpAnswer &answer) const
{
    // A server that has said yes has the report, even if the rest of its answer is lost; one that says nothing has not.
    if (answer.status < 200 || answer.status >= 400) {
        qCWarning(lcTessarine).noquote() << u"服务器未正常响应，发送CRASH报告失败，下次再发送...";
        return;
    }
    qCInfo(lcTessarine).noquote() << u"发送CRASH报告成功，删除本机报告文件...";
    std::remove(PathText::toBytes(path).constData());
}
