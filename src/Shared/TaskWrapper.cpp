#include "Shared/TaskWrapper.h"

#include "platform/Log.h"

#include <algorithm>
#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

/// How often a waiting thread looks at the cancel flag. Output of the tool and its end wake the thread at once.
constexpr auto lookInterval = 50ms;
/// What a tool gets to end in good order before it is killed.
constexpr auto graceTime = 500ms;

QString inWords(std::chrono::milliseconds time)
{
    return time >= 2min ? u"%1 minutes"_s.arg(std::chrono::floor<std::chrono::minutes>(time).count())
                        : u"%1 seconds"_s.arg(std::chrono::duration<double>(time).count());
}

} // namespace

TaskWrapper::TaskWrapper(TaskController *controller, QStringList arguments, TaskLimits limits) :
    controller_(controller), arguments_(std::move(arguments)), limits_(limits)
{
}

TaskWrapper::~TaskWrapper()
{
    qCDebug(lcTessarine, "Task dealloc");
    stopProcess();
    controller_ = nullptr;
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
    if (controller_) {
        controller_->processStarted();
    }
    sinceSignOfLife_.start();
    sinceStart_.start();
    task_ = std::make_unique<ChildProcess>(arguments_);
}

/// Takes one chunk of the output; false when there is none at hand.
bool TaskWrapper::getData()
{
    const auto chunk = task_->readOutput();
    if (!chunk) {
        return false;
    }
    if (chunk->isEmpty()) {
        stopProcess();
        return false;
    }
    sinceSignOfLife_.start();
    outputBytes_ += chunk->size();
    if (controller_) {
        controller_->appendOutput(decoder_(*chunk));
    }
    if (outputBytes_ > limits_.outputBytes) {
        breakLimit(u"printed messages without end"_s);
    }
    return true;
}

void TaskWrapper::FFMpegDidTerminate()
{
    const int status = task_->exitStatus().value_or(0);
    qCDebug(lcTessarine, "ffmpeg did finished:terminate status:%d", status);
    if (controller_) {
        std::exchange(controller_, nullptr)->launcherDidTerminatedWithCode(status);
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
        task_->wait(lookInterval);
        if (isRunning()) {
            getData();
            watch();
            continue;
        }
        while (getData()) {
        }
        if (killTime_.isForever()) { // what the tool has left running may hold its output open still
            stopProcess();
        }
        FFMpegDidTerminate();
    }
    return !wasCancelled;
}

void TaskWrapper::suspend()
{
    isSuspended_ = true;
    if (task_) {
        task_->sendSignal(SIGSTOP);
    }
}

void TaskWrapper::resume()
{
    isSuspended_ = false;
    if (task_) {
        task_->sendSignal(SIGCONT);
    }
}

void TaskWrapper::stopProcess()
{
    qCDebug(lcTessarine, "stop process");
    if (task_) {
        task_->ignoreOutput();
        task_->sendSignal(SIGTERM);
        killTime_ = std::min(killTime_, QDeadlineTimer(limits_.silence));
    }
    if (controller_) {
        controller_->processFinished();
    }
}

/// Makes the tool end soon, even one that is suspended or does not want to.
void TaskWrapper::demandEnd()
{
    if (killTime_.isForever()) {
        stopProcess();
    }
    task_->sendSignal(SIGCONT);
    killTime_ = std::min(killTime_, QDeadlineTimer(graceTime));
}

void TaskWrapper::breakLimit(const QString &limit)
{
    if (broken_.isEmpty()) {
        broken_ = limit;
    }
    demandEnd();
}

/// Ends a tool that will not end by itself.
void TaskWrapper::watch()
{
    const std::int64_t ticks = task_->processorTicks();
    if (isSuspended_ || std::exchange(processorTicks_, ticks) != ticks) {
        sinceSignOfLife_.start();
    }
    hung_ = hung_ || killTime_.hasExpired();
    if (sinceSignOfLife_.hasExpired(limits_.silence.count())) {
        hung_ = true;
        breakLimit(u"did nothing for %1"_s.arg(inWords(limits_.silence)));
    } else if (sinceStart_.hasExpired(limits_.wholeRun.count())) {
        hung_ = true;
        breakLimit(u"was not done after %1"_s.arg(inWords(limits_.wholeRun)));
    }
    if (controller_) {
        controller_->processRuns(std::chrono::milliseconds(sinceStart_.elapsed()));
    }
    if (killTime_.hasExpired()) {
        task_->sendSignal(SIGKILL);
    }
}
