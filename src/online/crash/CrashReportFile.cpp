#include "online/crash/CrashReportFile.h"

#include "online/crash/FixedText.h"
#include "platform/files/PathText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace {

/// For example "2026-03-14T15:09:26.535Z". The C library's functions for it may wait for a lock.
FixedText dateText(CrashReportFile::Time time)
{
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    const auto number = [](auto value) { return static_cast<std::uint64_t>(value); };
    FixedText text;
    text.appendNumber(number(static_cast<int>(date.year())), 10, 4);
    text.append("-").appendNumber(static_cast<unsigned>(date.month()), 10, 2);
    text.append("-").appendNumber(static_cast<unsigned>(date.day()), 10, 2);
    text.append("T").appendNumber(number(clock.hours().count()), 10, 2);
    text.append(":").appendNumber(number(clock.minutes().count()), 10, 2);
    text.append(":").appendNumber(number(clock.seconds().count()), 10, 2);
    text.append(".").appendNumber(number(clock.subseconds().count()), 10, 3);
    return text.append("Z");
}

} // namespace

CrashReportFile::CrashReportFile(const QString &path, const CrashReportObject &record) :
    finalPath(PathText::toBytes(path)), folder(finalPath.first(qMax(finalPath.lastIndexOf('/'), qsizetype(0))))
{
    temporaryPath = folder + "/.crash.info-" + QByteArray::number(::getpid()); // two processes may crash at once
    std::ranges::transform(crashReportTexts, texts.begin(), [&record](const auto &text) {
        const QString &value = record.*text.second;
        return value.isNull() ? QByteArray() : value.toUtf8();
    });
}

int CrashReportFile::open() const
{
    ::mkdir(folder.constData(), 0777); // not every user has the documents folder
    return ::open(temporaryPath.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600);
}

bool CrashReportFile::finish(int file, bool complete) const
{
    const bool kept = complete && ::fsync(file) == 0;
    const bool closed = ::close(file) == 0;
    if (kept && closed && ::rename(temporaryPath.constData(), finalPath.constData()) == 0) {
        return true;
    }
    abandon();
    return false;
}

void CrashReportFile::abandon() const
{
    ::unlink(temporaryPath.constData());
}

std::string_view CrashReportFile::writeHead(SignalSafeWriter &writer, std::optional<Time> date) const
{
    std::string_view separator = "\n";
    writer.append("{");
    const auto writeMember = [&](std::string_view name, std::string_view value) {
        writer.append(std::exchange(separator, ",\n")).append("\"").append(name).append("\": ");
        writeText(writer, value);
    };
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const QByteArray &value = texts[index];
        if (!value.isNull()) {
            writeMember(crashReportTexts[index].first, {value.constData(), static_cast<std::size_t>(value.size())});
        }
    }
    if (date) {
        writeMember("date", dateText(*date).view());
    }
    return separator;
}

/// As JSON has it: in quotes, with what it does not allow escaped.
void CrashReportFile::writeText(SignalSafeWriter &writer, std::string_view text)
{
    writer.append("\"");
    for (const char letter : text) {
        const auto code = static_cast<unsigned char>(letter);
        if (code < ' ') {
            writer.append("\\u").append(FixedText().appendNumber(code, 16, 4).view());
        } else {
            writer.append(letter == '"' || letter == '\\' ? "\\" : "").append({&letter, 1});
        }
    }
    writer.append("\"");
}
