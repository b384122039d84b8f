#include "Shared/TaskWrapper.h"

#include "Shared/FileStatus.h"
#include "platform/Log.h"
#include "platform/PathText.h"

#include <QFile>

#include <sys/types.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <utility>

using namespace std::chrono_literals;

namespace {

/// How often a waiting thread looks at the cancel flag; the tool's own end wakes it at once.
constexpr auto lookInterval = 50ms;
/// What a tool gets to end in good order before it is killed.
constexpr auto graceTime = 500ms;

/// The processor time that a process has used so far; 0 when it is gone.
std::int64_t processorTicksOf(std::int64_t process)
{
    static constexpr qsizetype userTime = 11; // of the fields behind the name, which stands in parentheses
    const auto status = GlobalFun::contentsOf(QStringLiteral("/proc/%1/stat").arg(process));
    if (!status)
        return 0;
    const QList<QByteArray> fields = status->mid(status->lastIndexOf(')') + 2).split(' ');
    return fields.value(userTime).toLongLong() + fields.value(userTime + 1).toLongLong();
}

} // namespace

TaskWrapper::TaskWrapper(TaskController *listener, QStringList commandLine, TaskLimits patience) :
    controller(listener), arguments(std::move(commandLine)), limits(patience)
{
}

TaskWrapper::~TaskWrapper()
{
    qCDebug(lcTessarine, "Task dealloc");
    stopProcess();
    if (!isRunning())
        return;
    task->disconnect();
    demandEnd();
    waitUntilTaskExit();
}

void TaskWrapper::startProcess()
{
    if (arguments.isEmpty() || isRunning())
        return;
    if (controller)
        controller->processStarted();
    task = std::make_unique<QProcess>();
    task->setProcessChannelMode(QProcess::MergedChannels);
    task->setStandardInputFile(QProcess::nullDevice()); // else the tool takes our terminal's keys for its own
    QObject::connect(task.get(), &QProcess::readyRead, task.get(), [this] { getData(); });
    QObject::connect(task.get(), &QProcess::readChannelFinished, task.get(), [this] { stopProcess(); });
    QObject::connect(task.get(), &QProcess::finished, task.get(), [this] { FFMpegDidTerminate(); });
    passArgumentBytes();
    sinceSignOfLife.start();
    task->start(arguments.first(), arguments.mid(1));
}

void TaskWrapper::passArgumentBytes()
{
    const auto survivesQt = [](const QString &text) { return QFile::encodeName(text) == PathText::toBytes(text); };
    if (std::ranges::all_of(arguments, survivesQt))
        return;
    std::ranges::transform(arguments, std::back_inserter(argumentBytes), &PathText::toBytes);
    std::ranges::transform(argumentBytes, std::back_inserter(argumentPointers), [](QByteArray &b) { return b.data(); });
    argumentPointers.push_back(nullptr);
    // Runs in the child, just before Qt would run the tool with the arguments as it knows them.
    task->setChildProcessModifier([list = argumentPointers.data()] { ::execv(list[0], list); });
}

void TaskWrapper::getData()
{
    const QByteArray chunk = task->readAll();
    outputBytes += chunk.size();
    if (controller)
        controller->appendOutput(decoder(chunk));
    if (outputBytes > limits.outputBytes)
        demandEnd();
}

void TaskWrapper::FFMpegDidTerminate()
{
    qCDebug(lcTessarine, "ffmpeg did finished:terminate status:%d", task->exitCode());
    if (controller)
        std::exchange(controller, nullptr)->launcherDidTerminatedWithCode(task->exitCode());
}

void TaskWrapper::waitUntilTaskExit()
{
    const CancelFlag never{false};
    waitUntilTaskExit(never);
}

bool TaskWrapper::waitUntilTaskExit(const CancelFlag &cancelled)
{
    bool wasCancelled = false;
    while (isRunning()) {
        if (cancelled) {
            wasCancelled = true;
            demandEnd();
        }
        if (task->waitForFinished(static_cast<int>(lookInterval.count())))
            break;
        watch();
    }
    return !wasCancelled;
}

void TaskWrapper::suspend()
{
    isSuspended = true;
    sendSignal(SIGSTOP);
}

void TaskWrapper::resume()
{
    isSuspended = false;
    sendSignal(SIGCONT);
}

void TaskWrapper::stopProcess()
{
    qCDebug(lcTessarine, "stop process");
    if (task) {
        QObject::disconnect(task.get(), &QProcess::readyRead, nullptr, nullptr);
        QObject::disconnect(task.get(), &QProcess::readChannelFinished, nullptr, nullptr);
        task->closeReadChannel(QProcess::StandardOutput);
        task->terminate();
        killTime = std::min(killTime, QDeadlineTimer(limits.silence));
    }
    if (controller)
        controller->processFinished();
}

/// Makes the tool end soon, even one that is suspended or does not want to.
void TaskWrapper::demandEnd()
{
    if (killTime.isForever())
        stopProcess();
    sendSignal(SIGCONT);
    killTime = std::min(killTime, QDeadlineTimer(graceTime));
}

/// Ends a tool that will not end by itself.
void TaskWrapper::watch()
{
    if (isSuspended || showsLife()) {
        sinceSignOfLife.start();
    } else if (sinceSignOfLife.hasExpired(limits.silence.count())) {
        demandEnd();
    }
    if (killTime.hasExpired())
        task->kill();
}

bool TaskWrapper::showsLife()
{
    const std::int64_t ticks = processorTicksOf(task->processId());
    return std::exchange(processorTicks, ticks) != ticks || std::exchange(outputBytesSeen, outputBytes) != outputBytes;
}

void TaskWrapper::sendSignal(int number) const
{
    if (isRunning() && task->processId() > 0)
        ::kill(static_cast<pid_t>(task->processId()), number);
}

bool TaskWrapper::isRunning() const
{
    return task && task->state() != QProcess::NotRunning;
}
