#pragma once

#include <QByteArray>
#include <QString>

#include <array>
#include <string>
#include <string_view>

struct CrashReportObject;

/// What a dying thread does: takes its stack, writes the report, tells the log. What is known beforehand is prepared
/// when the handlers are installed. The rest does not use the heap, which may be damaged or locked after a crash. Owned
/// by CrashReportSingal; used by the one thread that dies first.
class CrashRecorder {
public:
    CrashRecorder(const QString &path, const CrashReportObject &record);

    /// Takes the caller's stack and writes the report, in place of one that is there.
    void record();
    /// For a crash in record(): writes the report with what was found of the stack until then.
    void writeReport();
    /// Writes the stack to the log, standard error.
    void logStack() const;
    /// The same for an exception, with its type's name and what it says of itself.
    void logException(std::string_view name, std::string_view reason) const;

private:
    QByteArray finalPath_;
    QByteArray temporaryPath_;
    QByteArray folder_;
    std::string report_;              ///< as far as it is known
    std::string lines_;               ///< the stack as text
    std::array<void *, 128> stack_{}; ///< innermost first, null after the last
};
