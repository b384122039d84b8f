#include "online/crash/CrashRecorder.h"

#include "online/crash/CrashReportObject.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <initializer_list>

namespace {

constexpr std::string_view dashes = "----------------------------------------------------\n";
constexpr std::string_view warning = "-------------注意：注意：发现未处理得异常！！！------------\n";
constexpr std::size_t longestFrame = 512; // letters

void log(std::initializer_list<std::string_view> texts)
{
    for (const std::string_view text : texts) {
        FileSystem::writeAll(STDERR_FILENO, text);
    }
}

/// For example "2026-03-14T15:09:26.535Z". Not by the C library's functions for dates, which may wait for a lock.
std::array<char, 32> dateText()
{
    using namespace std::chrono;
    const auto now = floor<milliseconds>(system_clock::now());
    const year_month_day date(floor<days>(now));
    const hh_mm_ss clock(now - floor<days>(now));
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    return text;
}

/// Module, offset and the linker's name, for example "tessarine+0x2f1c0 _ZN9MovieList5clearEv", in printable ASCII
/// without quotes and backslashes. Readable names would take the heap.
void appendFrame(std::string &text, const void *address)
{
    const char *const call = static_cast<const char *>(address) - 1; // the address is where the call returns to
    Dl_info info = {};
    ::dladdr(call, &info);
    const char *const module = info.dli_fname == nullptr ? "?" : info.dli_fname;
    const char *const slash = std::strrchr(module, '/');
    std::array<char, longestFrame> frame{};
    std::snprintf(frame.data(), frame.size(), "%s+0x%zx %s", slash == nullptr ? module : slash + 1,
                  static_cast<std::size_t>(call - static_cast<const char *>(info.dli_fbase)),
                  info.dli_sname == nullptr ? "" : info.dli_sname);
    const std::string_view letters(frame.data());
    std::ranges::transform(letters, frame.begin(), [](char letter) {
        return letter < ' ' || letter > '~' || letter == '"' || letter == '\\' ? '?' : letter;
    });
    text.append(letters);
}

} // namespace

CrashRecorder::CrashRecorder(const QString &path, const CrashReportObject &record) :
    finalPath_(PathText::toBytes(path)),
    temporaryPath_(finalPath_ + '-' + QByteArray::number(::getpid())), // two processes may crash at once
    folder_(finalPath_.first(qMax(finalPath_.lastIndexOf('/'), qsizetype(0)))),
    report_(record.fileForm().toStdString())
{
    report_.erase(report_.rfind("\n}"));
    lines_.reserve(stack_.size() * longestFrame);
    report_.reserve(report_.size() + stack_.size() * (longestFrame + 4) + 100);
    void *any = nullptr;
    ::backtrace(&any, 1); // its first call loads a library
}

void CrashRecorder::record()
{
    ::backtrace(stack_.data(), static_cast<int>(stack_.size()));
    writeReport();
}

void CrashRecorder::writeReport()
{
    report_.append(",\n\"date\": \"").append(dateText().data()).append("\",\n\"stackArray\": [");
    for (auto frame = stack_.begin(); frame != stack_.end() && *frame != nullptr; ++frame) {
        const std::size_t start = lines_.size();
        appendFrame(lines_, *frame);
        report_.append(start == 0 ? "\n\"" : ",\n\"").append(lines_, start).append("\"");
        lines_.append("\n");
    }
    report_.append("\n]\n}\n");
    ::mkdir(folder_.constData(), 0777); // not every user has the documents folder
    FileSystem::replaceFile(finalPath_.constData(), temporaryPath_.constData(), report_);
}

void CrashRecorder::logStack() const
{
    log({dashes, warning, lines_});
}

void CrashRecorder::logException(std::string_view name, std::string_view reason) const
{
    log({dashes, warning, dashes, "uncaught exception\n", lines_, "\r\rNAME:", name, "\rREASON:", reason, "\n", dashes,
         dashes});
}
