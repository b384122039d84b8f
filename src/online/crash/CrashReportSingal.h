#pragma once

#include "platform/threads/AlternateStack.h"

#include <QString>

#include <memory>

class CrashRecorder;
struct CrashReportObject;

/// While it lives, a fatal signal or an uncaught exception writes a crash report before it ends the process, on
/// whichever thread it happens. Owned by CrashReportSender; one at a time, since signals belong to the whole process.
///
/// In a build with sanitizers it does nothing: they have handlers of their own.
class CrashReportSingal {
public:
    /// Installs the handlers and prepares all that a dying process could not do: `record` holds what is known before a
    /// crash.
    CrashReportSingal(const QString &path, const CrashReportObject &record);
    /// Gives the signals their default actions.
    ~CrashReportSingal();
    CrashReportSingal(const CrashReportSingal &) = delete;
    CrashReportSingal &operator=(const CrashReportSingal &) = delete;

private:
    AlternateStack stack_; ///< for the thread that makes this, the main thread
    std::unique_ptr<CrashRecorder> recorder_;
};
