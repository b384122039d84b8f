#pragma once

#include "online/crash/CrashReportObject.h"
#include "online/crash/CrashReportSingal.h"
#include "online/crash/CrashReportUpload.h"
#include "platform/threads/NotificationCenter.h"

#include <QString>

#include <optional>

class QUrl;

/// Hears of crash reports and turns them into text. Main thread.
class CrashReportSenderDelegate {
public:
    virtual ~CrashReportSenderDelegate() = default;

    /// Takes the report that an earlier run has left; nothing when it cannot be read. Whoever is done with it calls
    /// CrashReportSender::noticeHandleCrashReportSuccess().
    virtual void handleCrashReport(const std::optional<CrashReportObject> &report) = 0;
    /// The text to upload for the report; nothing, as by default, from a delegate that makes none.
    virtual std::optional<QString> createReportContentByReportInfo(const std::optional<CrashReportObject> & /*report*/)
    {
        return std::nullopt;
    }
};

/// Records crashes of this process while it lives, and deals with the report that an earlier one has left. Owned by the
/// program's main, one at a time; main thread.
class CrashReportSender {
public:
    /// Installs the handlers. `path` is where reports lie; `record` holds what is known before a crash.
    CrashReportSender(const QString &path, const CrashReportObject &record);

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
    QString reportPath;
    CrashReportSingal crashSignalHanler;
    NotificationCenter notifications;        ///< for the upload alone
    std::optional<CrashReportUpload> upload; ///< from the first call on
};
