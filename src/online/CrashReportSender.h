#pragma once

#include "online/CrashReportObject.h"
#include "online/CrashReportSingal.h"

#include <QString>

#include <memory>
#include <optional>

class CrashReportUpload;
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
    ~CrashReportSender();
    CrashReportSender(const CrashReportSender &) = delete;
    CrashReportSender &operator=(const CrashReportSender &) = delete;

    /// Whether anything is at the reports' path.
    bool hasPendingCrashReport() const;
    /// The pending report as it can be read; nothing when it cannot.
    std::optional<CrashReportObject> pendingCrashReport() const;
    /// Hands the pending report to the delegate, which must outlive this; without a delegate that is an error in the
    /// log, without a report nothing.
    void handleCrashReport(CrashReportSenderDelegate *delegate);
    /// Deletes the report. Something that cannot be one, a folder with something in it, stays.
    void noticeHandleCrashReportSuccess();
    /// Uploads the pending report a second later, or when the network is there; see CrashReportUpload. This program
    /// never calls it.
    void sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate);

private:
    QString reportPath;
    CrashReportSingal crashSignalHanler;
    CrashReportSenderDelegate *reportDelegate = nullptr;
    std::unique_ptr<CrashReportUpload> upload; // from the first call on
};
