#include "online/crash/CrashReportSender.h"

#include "online/crash/CrashReportSenderDelegate.h"
#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

using namespace Qt::StringLiterals;

CrashReportSender::CrashReportSender(const QString &reportPath, const CrashReportObject &record) :
    reportPath_(reportPath), crashSignalHanler(reportPath, record)
{
}

bool CrashReportSender::hasPendingCrashReport() const
{
    return FileSystem::isTaken(reportPath_);
}

void CrashReportSender::handleCrashReport(CrashReportSenderDelegate *delegate) const
{
    if (delegate == nullptr) {
        qCWarning(lcTessarine).noquote()
            << u"CRASH REPORT SENDER DELEGATE 需实现handleCrashReport方法，自定义的CRASH报告处理失败"_s;
        return;
    }
    if (hasPendingCrashReport()) {
        delegate->handleCrashReport(CrashReportObject::initWithContentsOfFile(reportPath_));
    }
}

void CrashReportSender::noticeHandleCrashReportSuccess() const
{
    qCInfo(lcTessarine).noquote() << u"CRASH REPORT 处理成功"_s;
    // Without contents: a folder with something in it belongs to the user.
    if (std::remove(PathText::toBytes(reportPath_).constData()) != 0) {
        qCWarning(lcTessarine, "crash report not deleted: %s", std::strerror(errno));
    }
}

void CrashReportSender::sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate)
{
    upload_.sendCrashReportToURL(url, delegate);
}
