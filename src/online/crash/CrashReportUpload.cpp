#include "online/crash/CrashReportUpload.h"

#include "online/crash/CrashReportSenderDelegate.h"
#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <cstdio>

using namespace Qt::StringLiterals;

CrashReportUpload::CrashReportUpload(const QString &path, NotificationCenter &center, std::chrono::milliseconds delay,
                                     std::chrono::milliseconds answerTime) :
    path_(path), center_(center), answerTime_(answerTime)
{
    submission_.setInterval(delay);
    submission_.setSingleShot(true);
    submission_.callOnTimeout([this] { submit(); });
}

void CrashReportUpload::sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate)
{
    if (!FileSystem::isTaken(path_)) {
        return;
    }
    target_ = url;
    reportDelegate_ = delegate;
    if (!submission_.isActive()) {
        submission_.start();
    }
}

void CrashReportUpload::submit()
{
    exchange_.reset();
    networkChange_.reset();
    if (target_.host().isEmpty()) {
        waitForNetwork();
        return;
    }
    lookup_.emplace(target_.host(), [this](const Result<QByteArrayList> &addresses) {
        if (!addresses) {
            waitForNetwork();
        } else if (FileSystem::isTaken(path_)) {
            send();
        }
    });
}

void CrashReportUpload::waitForNetwork()
{
    if (!watch_) {
        watch_.emplace(center_);
    }
    networkChange_ = center_.observe(NetworkWatch::changed, [this] {
        networkChange_.reset();
        submit();
    });
}

void CrashReportUpload::send()
{
    const auto content =
        reportDelegate_ == nullptr
            ? std::nullopt
            : reportDelegate_->createReportContentByReportInfo(CrashReportObject::initWithContentsOfFile(path_));
    if (!content) {
        qCWarning(lcTessarine).noquote()
            << u"CRASH REPORT DELEGATE 需实现 createReportContentByReportInfo 方法，发送失败。";
        return;
    }
    qCInfo(lcTessarine).noquote() << u"send crash report:\n"_s + *content;
    exchange_.emplace(
        HttpRequest{target_, content->toUtf8()}, [this](const HttpAnswer &answer) { takeAnswer(answer); }, answerTime_);
}

void CrashReportUpload::takeAnswer(const HttpAnswer &answer) const
{
    // A status of success counts, even if the rest of the answer is lost.
    if (answer.status < 200 || answer.status >= 400) {
        qCWarning(lcTessarine).noquote() << u"服务器未正常响应，发送CRASH报告失败，下次再发送...";
        return;
    }
    qCInfo(lcTessarine).noquote() << u"发送CRASH报告成功，删除本机报告文件...";
    std::remove(PathText::toBytes(path_).constData());
}
