#include "online/crash/CrashRecorder.h"

#include <unistd.h>

namespace {

constexpr std::string_view dashes = "----------------------------------------------------\n";
constexpr std::string_view warning = "-------------注意：注意：发现未处理得异常！！！------------\n";

} // namespace

CrashRecorder::CrashRecorder(const QString &path, const CrashReportObject &record) : file(path, record) {}

void CrashRecorder::record()
{
    time = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    stack.capture();
    write(CrashStack::Detail::Symbol);
    write(CrashStack::Detail::Readable);
}

void CrashRecorder::rescue()
{
    if (hasReport) {
        return;
    }
    write(CrashStack::Detail::Address);
    write(CrashStack::Detail::Symbol); // may crash again
}

void CrashRecorder::write(CrashStack::Detail detail)
{
    hasReport |= file.write(time, stack.size(), [&](std::size_t index) { return stack.frame(index, detail); });
}

void CrashRecorder::logStack() const
{
    SignalSafeWriter log(STDERR_FILENO);
    log.append(dashes).append(warning);
    appendFrames(log);
}

void CrashRecorder::logException(std::string_view name, std::string_view reason) const
{
    SignalSafeWriter log(STDERR_FILENO);
    log.append(dashes).append(warning).append(dashes).append("uncaught exception\n");
    appendFrames(log);
    log.append("\r\rNAME:").append(name).append("\rREASON:").append(reason).append("\n").append(dashes).append(dashes);
}

void CrashRecorder::appendFrames(SignalSafeWriter &log) const
{
    for (std::size_t index = 0; index < stack.size(); ++index) {
        log.append(stack.frame(index, CrashStack::Detail::Readable).view()).append("\n");
    }
}
