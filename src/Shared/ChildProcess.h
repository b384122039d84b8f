#pragma once

#include "platform/files/FileDescriptor.h"

#include <QByteArray>
#include <QStringList>

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <optional>

/// A program that runs beside this one, with everything that it starts itself: its two outputs come as one, its input
/// is empty. To be used on one thread; needs no event loop and wakes at once when there is something new.
class ChildProcess {
public:
    /// Runs the first of the arguments, a path; all reach the program with the bytes that PathText gives. When it
    /// cannot be run it has ended at once, without exit status.
    explicit ChildProcess(const QStringList &arguments);
    /// Kills what still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess &) = delete;
    ChildProcess &operator=(const ChildProcess &) = delete;

    /// As of the last wait(); turns false once and for good.
    bool isRunning() const { return process_ > 0; }
    /// Whether there was a program that could be run.
    bool hasRun() const { return ran_; }
    /// Its exit status, or the number of the signal that ended it. Nothing while it runs.
    std::optional<int> exitStatus() const { return status_; }

    /// Waits until there is output, the output has ended, or the program has; at most for so long.
    void wait(std::chrono::milliseconds time);

    /// The output that has come, up to 64 KiB of it, without waiting. Empty bytes, once, are its end; nothing means
    /// that there is none now.
    std::optional<QByteArray> readOutput();
    /// Output is no longer waited for nor read.
    void ignoreOutput() { hearsOutput_ = false; }

    /// Sends a signal such as SIGTERM to the program and those that it has started.
    void sendSignal(int number) const;

    /// The processor time that the program has used so far, in the system's ticks.
    std::int64_t processorTicks() const;

private:
    void takeEnd();

    pid_t process_ = 0;
    FileDescriptor end_; ///< becomes readable when the program has ended
    FileDescriptor output_;
    bool hearsOutput_ = true;
    bool ran_ = false;
    std::optional<int> status_;
};
