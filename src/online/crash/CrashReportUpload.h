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
    /// `path` is where the pending report lies, if there is one; `delay` comes before the first try, and the
    /// server has the `answerTime` for its answer. The centre must outlive this.
    CrashReportUpload(const QString &path, NotificationCenter &center,
                      std::chrono::milliseconds delay = std::chrono::seconds(1),
                      std::chrono::milliseconds answerTime = std::chrono::seconds(15));

    /// Begins when a report is pending, else does nothing. A call while an earlier one still waits or sends takes its
    /// place. The delegate must outlive this; nothing is sent without one that makes texts.
    void sendCrashReportToURL(const QUrl &url, CrashReportSenderDelegate *delegate);

private:
    void submit();
    void waitForNetwork();
    void send();
    void takeAnswer(const HttpAnswer &answer) const;

    QString path_;
    NotificationCenter &center_;
    std::chrono::milliseconds answerTime_;
    QUrl target_;
    CrashReportSenderDelegate *reportDelegate_ = nullptr;
    std::optional<NetworkWatch> watch_; ///< from the first wait on
    NotificationCenter::Observation networkChange_;
    std::optional<HostLookup> lookup_;
    std::optional<HttpExchange> exchange_;
    QTimer submission_;
};
