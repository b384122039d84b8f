#pragma once

#include <array>
#include <csignal>
#include <functional>
#include <stop_token>
#include <thread>

/// While it lives, SIGINT, SIGTERM and SIGHUP call a reaction instead of ending the process; those that were ignored
/// stay so. A second SIGINT or SIGTERM ends the process, whatever hangs. Where no thread can be had the signals do what
/// they always do. One at a time.
class InterruptSignals {
public:
    /// Called after each signal on a thread of its own, one call after the other. It may take its time until `ending`
    /// says that this object goes.
    using Reaction = std::function<void(const std::stop_token &ending)>;

    /// Which threads a signal may interrupt.
    enum class HeardBy {
        AnyThread,
        /// All but the thread that makes this object and the threads and processes that it starts afterwards. The
        /// system may otherwise deliver a signal to a thread that hangs, where it has no effect.
        OtherThreads,
    };

    InterruptSignals(HeardBy hearers, Reaction react);
    ~InterruptSignals();
    InterruptSignals(const InterruptSignals &) = delete;
    InterruptSignals &operator=(const InterruptSignals &) = delete;

private:
    void watch(const std::stop_token &ending) const;

    static constexpr std::array interrupts{SIGINT, SIGTERM, SIGHUP};
    const Reaction react_;
    std::array<struct sigaction, interrupts.size()> actionsBefore_{};
    sigset_t maskBefore_ = {};
    std::jthread watcher_; ///< last: it uses what stands above
};
