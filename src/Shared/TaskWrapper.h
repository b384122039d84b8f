#pragma once

#include "Shared/ChildProcess.h"
#include "Shared/TaskController.h"
#include "platform/threads/CancelFlag.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QStringDecoder>
#include <QStringList>

#include <chrono>
#include <cstdint>
#include <memory>

/// When a running tool is taken for one that will never end by itself, or not in useful time.
struct TaskLimits {
    /// No output and no processor time for so long.
    std::chrono::milliseconds silence = std::chrono::seconds(60);
    /// More output than so many bytes.
    std::int64_t outputBytes = std::int64_t{64} << 20;
    /// Running for so long, whatever it does.
    std::chrono::milliseconds wholeRun = std::chrono::minutes(10);
};

/// Runs one external tool and waits for its end. Owned by whoever needs the tool; to be used on one thread, which needs
/// no event loop. Never leaves a process behind. What the program does not call belongs to the vocabulary.
class TaskWrapper {
public:
    /// `controller` may be null and must outlive this. Element 0 of `arguments` is the program, by its path; all of it
    /// reaches the tool with the bytes that PathText gives.
    TaskWrapper(TaskController *controller, QStringList arguments, TaskLimits limits = {});
    ~TaskWrapper();
    TaskWrapper(const TaskWrapper &) = delete;
    TaskWrapper &operator=(const TaskWrapper &) = delete;

    /// Runs the tool, its two outputs as one, its input empty. What cannot be run ends at once, without a word.
    void startProcess();

    /// Whether there was a program to run.
    bool hasRun() const { return task_ && task_->hasRun(); }

    /// The limit that it broke, for the user; empty when it has kept them all.
    QString brokenLimit() const { return broken_; }
    /// Whether another such run would probably hang as long.
    bool hasHung() const { return hung_; }

    /// Waits until the tool has ended.
    void waitUntilTaskExit();
    /// The same, but setting `cancelled` stops the tool; false when it did.
    bool waitUntilTaskExit(const CancelFlag &cancelled);

    void suspend();
    void resume();
    /// Asks the tool to end, and hears no more of its output. If it does not within the limit for silence, waiting ends
    /// it.
    void stopProcess();

private:
    bool getData();
    void FFMpegDidTerminate();
    void demandEnd();
    void breakLimit(const QString &limit);
    void watch();
    bool isRunning() const { return task_ && task_->isRunning(); }

    TaskController *controller_;
    const QStringList arguments_;
    const TaskLimits limits_;
    std::unique_ptr<ChildProcess> task_;

    QStringDecoder decoder_{QStringDecoder::Utf8};
    std::int64_t outputBytes_ = 0;
    std::int64_t processorTicks_ = 0;
    bool isSuspended_ = false;
    bool hung_ = false;
    QString broken_;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceSignOfLife_;
    QDeadlineTimer killTime_{QDeadlineTimer::Forever};
};
