#pragma once

#include "online/HostLookup.h"
#include "online/HttpExchange.h"
#include "online/NetworkWatch.h"
#include "platform/threads/NotificationCenter.h"

#include <QLatin1StringView>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

class CrashReportSenderDelegate;

/// Uploads the pending crash report and deletes it when the server has taken it; waits where the network is not there.
/// Owned by CrashReportSender; main thread.
class CrashReportUpload {
public:
    /// `reportPath` is where the pending report lies, if there is one; `delay` comes before the first try, and the
    /// server has the `patience` for its answer. The centre must outlive this.
    CrashReportUpload(const QString &reportPath, NotificationCenter &notifications,
                      std::chrono::milliseconds delay = std::chrono::seconds(1),
                      std::chrono::milliseconds patience = std::chrono::seconds(15));

    /// Begins when a report is pending, else does nothing. A call while an earlier one still waits or sends takes its
    /// place. The delegate must outlive this; nothing is sent without one that makes texts.
    void sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate);

private:
    void submit();
    void waitForNetwork();
    void send();
    void takeAnswer(const HttpAnswer &answer) const;

    QString path;
    NotificationCenter &center;
    std::chrono::milliseconds answerTime;
    QUrl target;
    CrashReportSenderDelegate *reportDelegate = nullptr;
    std::optional<NetworkWatch> watch; ///< from the first wait on
    NotificationCenter::Observation networkChange;
    std::optional<HostLookup> lookup;
    std::optional<HttpExchange> exchange;
    QTimer submission;
};
