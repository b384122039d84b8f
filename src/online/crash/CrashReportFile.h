#pragma once

#include "online/crash/CrashReportObject.h"
#include "online/crash/SignalSafeWriter.h"

#include <QByteArray>

#include <array>
#include <chrono>
#include <optional>
#include <string_view>
#include <utility>

/// The texts of a record by the names that they have in its file form, in their order; the date and the stack follow.
inline constexpr std::array crashReportTexts{
    std::pair{"osName", &CrashReportObject::osName},
    std::pair{"deviceModel", &CrashReportObject::deviceModel},
    std::pair{"deviceUniqueIdentifier", &CrashReportObject::deviceUniqueIdentifier},
    std::pair{"osVersion", &CrashReportObject::osVersion},
    std::pair{"version", &CrashReportObject::version},
    std::pair{"identifier", &CrashReportObject::identifier},
};

/// Writes the file form of a record in a way that a dying process can: what is known beforehand is prepared at
/// construction, the rest needs no heap. The file appears whole, in place of what was at the path before.
class CrashReportFile {
public:
    using Time = std::chrono::sys_time<std::chrono::milliseconds>;

    CrashReportFile(const QString &path, const CrashReportObject &record);

    /// Writes the record with this date, or without one, and the stack: `frame(i)`, which has a view() as UTF-8, for
    /// each i below `frameCount`. False when it cannot be written; what was at the path is there still.
    template<class Frame>
    bool write(std::optional<Time> date, std::size_t frameCount, Frame frame) const;

    /// For a process that ends in the middle of write(): leaves nothing half written behind.
    void abandon() const;

private:
    /// A hidden file beside the final one; -1 when it cannot be made.
    int open() const;
    /// Gives the file its final name when it is complete; else removes it.
    bool finish(int file, bool complete) const;
    /// Returns what separates the next member from those written.
    std::string_view writeHead(SignalSafeWriter &writer, std::optional<Time> date) const;
    static void writeText(SignalSafeWriter &writer, std::string_view text);

    QByteArray finalPath;
    QByteArray temporaryPath;
    QByteArray folder;
    std::array<QByteArray, crashReportTexts.size()> texts; ///< null for what is absent
};

template<class Frame>
bool CrashReportFile::write(std::optional<Time> date, std::size_t frameCount, Frame frame) const
{
    const int file = open();
    SignalSafeWriter writer(file);
    const std::string_view separator = writeHead(writer, date);
    for (std::size_t index = 0; index < frameCount; ++index) {
        if (index == 0) {
            writer.append(separator).append("\"stackArray\": [");
        }
        writer.append(index == 0 ? "\n" : ",\n");
        writeText(writer, frame(index).view());
    }
    writer.append(frameCount > 0 ? "\n]\n}\n" : "\n}\n");
    return finish(file, writer.flush());
}
