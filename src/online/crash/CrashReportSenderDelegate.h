#pragma once

#include "online/crash/CrashReportObject.h"

#include <QString>

#include <optional>

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
