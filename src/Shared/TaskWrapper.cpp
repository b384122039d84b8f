#include "Shared/TaskWrapper.h"

#include "platform/Log.h"

#include <algorithm>
#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

/// How often a waiting thread looks at the cancel flag; the tool's own doings wake it at once.
constexpr auto lookInterval = 50ms;
/// What a tool gets to end in good order before it is killed.
constexpr auto graceTime = 500ms;

QString inWords(std::chrono::milliseconds time)
{
    return time >= 2min ? u"%1 minutes"_s.arg(std::chrono::floor<std::chrono::minutes>(time).count())
                        : u"%1 seconds"_s.arg(std::chrono::duration<double>(time).count());
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
    controller = nullptr;
    if (isRunning()) {
        demandEnd();
        waitUntilTaskExit();
    }
}

void TaskWrapper::startProcess()
{
    if (isRunning()) {
        return;
    }
    if (controller) {
        controller->processStarted();
    }
    sinceSignOfLife.start();
    sinceStart.start();
    task = std::make_unique<ChildProcess>(arguments);
}

/// Takes one chunk of the output; false when there is none at hand.
bool TaskWrapper::getData()
{
    const auto chunk = task->readOutput();
    if (!chunk) {
        return false;
    }
    if (chunk->isEmpty()) {
        stopProcess();
        return false;
    }
    sinceSignOfLife.start();
    outputBytes += chunk->size();
    if (controller) {
        controller->appendOutput(decoder(*chunk));
    }
    if (outputBytes > limits.outputBytes) {
        breakLimit(u"printed messages without end"_s);
    }
    return true;
}

void TaskWrapper::FFMpegDidTerminate()
{
    const int status = task->exitStatus().value_or(0);
    qCDebug(lcTessarine, "ffmpeg did finished:terminate status:%d", status);
    if (controller) {
        std::exchange(controller, nullptr)->launcherDidTerminatedWithCode(status);
    }
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
        task->wait(lookInterval);
        if (isRunning()) {
            getData();
            watch();
            continue;
        }
        while (getData()) {
        }
        if (killTime.isForever()) { // what the tool has left running may hold its output open still
            stopProcess();
        }
        FFMpegDidTerminate();
    }
    return !wasCancelled;
}

void TaskWrapper::suspend()
{
    isSuspended = true;
    if (task) {
        task->sendSignal(SIGSTOP);
    }
}

void TaskWrapper::resume()
{
    isSuspended = false;
    if (task) {
        task->sendSignal(SIGCONT);
    }
}

void TaskWrapper::stopProcess()
{
    qCDebug(lcTessarine, "stop process");
    if (task) {
        task->ignoreOutput();
        task->sendSignal(SIGTERM);
        killTime = std::min(killTime, QDeadlineTimer(limits.silence));
    }
    if (controller) {
        controller->processFinished();
    }
}

/// Makes the tool end soon, even one that is suspended or does not want to.
void TaskWrapper::demandEnd()
{
    if (killTime.isForever()) {
        stopProcess();
    }
    task->sendSignal(SIGCONT);
    killTime = std::min(killTime, QDeadlineTimer(graceTime));
}

void TaskWrapper::breakLimit(const QString &limit)
{
    if (broken.isEmpty()) {
        broken = limit;
    }
    demandEnd();
}

/// Ends a tool that will not end by itself.
void TaskWrapper::watch()
{
    const std::int64_t ticks = task->processorTicks();
    if (isSuspended || std::exchange(processorTicks, ticks) != ticks) {
        sinceSignOfLife.start();
    }
    hung = hung || killTime.hasExpired();
    if (sinceSignOfLife.hasExpired(limits.silence.count())) {
        hung = true;
        breakLimit(u"did nothing for %1"_s.arg(inWords(limits.silence)));
    } else if (sinceStart.hasExpired(limits.wholeRun.count())) {
        hung = true;
        breakLimit(u"was not done after %1"_s.arg(inWords(limits.wholeRun)));
    }
    if (controller) {
        controller->processRuns(std::chrono::milliseconds(sinceStart.elapsed()));
    }
    if (killTime.hasExpired()) {
        task->sendSignal(SIGKILL);
    }
}
