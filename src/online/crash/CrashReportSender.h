#pragma once

#include "online/crash/CrashReportSingal.h"
#include "online/crash/CrashReportUpload.h"
#include "platform/threads/NotificationCenter.h"

#include <QString>

class CrashReportSenderDelegate;
class QUrl;
struct CrashReportObject;

/// Records crashes of this process while it lives, and deals with the report that an earlier one has left. Owned by the
/// program's main, one at a time; main thread.
class CrashReportSender {
public:
    /// Installs the handlers. `reportPath` is where reports lie; `record` holds what is known before a crash.
    CrashReportSender(const QString &reportPath, const CrashReportObject &record);

    /// Whether anything is at the reports' path.
    bool hasPendingCrashReport() const;
    /// Hands the pending report, if there is one, to the delegate; without a delegate there is a line in the log.
    void handleCrashReport(CrashReportSenderDelegate *delegate) const;
    /// Deletes the report. Something that cannot be one, a folder with something in it, stays.
    void noticeHandleCrashReportSuccess() const;
    /// Uploads the pending report a second later, or when the network is there; see CrashReportUpload. This program
    /// never calls it.
    void sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate);

private:
    QString reportPath_;
    CrashReportSingal crashSignalHanler;
    NotificationCenter notifications_; ///< for the upload alone
    CrashReportUpload upload_{reportPath_, notifications_};
};
