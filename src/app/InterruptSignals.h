#pragma once

#include "platform/files/FileDescriptor.h"
#include "platform/threads/CancelFlag.h"

#include <chrono>
#include <csignal>
#include <optional>
#include <pthread.h>
#include <thread>

/// While it lives, SIGINT, SIGTERM and SIGHUP set the cancel flag instead of ending the process; those that were
/// ignored stay so. A thread of its own waits for them, so that whatever holds up the others, a second SIGINT or
/// SIGTERM ends the process, and so does time. Made on the thread that does the work, before others are started; the
/// flag must outlive it. Where no thread can be had the signals do what they always do.
class InterruptSignals {
public:
    explicit InterruptSignals(CancelFlag &flag);
    ~InterruptSignals();
    InterruptSignals(const InterruptSignals &) = delete;
    InterruptSignals &operator=(const InterruptSignals &) = delete;

private:
    void watch();
    void takeSignal();
    void hurry() const;

    CancelFlag &cancelled;
    sigset_t interrupts = {};
    sigset_t blockedBefore = {};
    pthread_t worker;
    FileDescriptor signalFile; ///< gives the signals that have come
    FileDescriptor ending;     ///< readable when the thread is no longer needed
    std::optional<std::chrono::steady_clock::time_point> cancelledAt;
    std::thread watcher;
};
