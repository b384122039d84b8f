#pragma once

#include "online/crash/CrashReportFile.h"
#include "online/crash/CrashStack.h"

#include <string_view>

struct CrashReportObject;

/// What a dying thread does: takes its stack, writes the report, tells the log. Made while all is well, owned by
/// CrashReportSingal; used by the one thread that dies first.
class CrashRecorder {
public:
    CrashRecorder(const QString &path, const CrashReportObject &record);

    /// Takes the caller's stack and writes the report, twice: first as it can be done without a heap, which the crash
    /// may have spoilt or left locked, then, in its place, with names that are easier to read.
    void record();
    /// For a crash in record(): writes what was found until then, unless a report has been written already.
    void rescue();
    /// For the end in the middle of the two above, on any thread.
    void abandon() const { file.abandon(); }
    /// Writes the stack to standard error.
    void logStack() const;
    /// The same for an exception, with its type's name and what it says of itself.
    void logException(std::string_view name, std::string_view reason) const;

private:
    void write(CrashStack::Detail detail);
    void appendFrames(SignalSafeWriter &log) const;

    CrashStack stack;
    CrashReportFile file;
    CrashReportFile::Time time;
    bool hasReport = false;
};
