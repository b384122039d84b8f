#pragma once

#include <array>
#include <chrono>
#include <csignal>

/// While it lives, SIGINT, SIGTERM and SIGHUP call the handler instead of ending the process; those that were ignored
/// stay so. A second SIGINT or SIGTERM ends the process whatever hangs. One at a time.
class InterruptHandler {
public:
    /// The handler may only do what is safe in a signal handler; it runs on any thread.
    explicit InterruptHandler(void (*handler)(int signal));
    ~InterruptHandler();
    InterruptHandler(const InterruptHandler &) = delete;
    InterruptHandler &operator=(const InterruptHandler &) = delete;

    /// The signals that interrupt this process, without those that it was started to ignore.
    static sigset_t expectedInterrupts();
    /// Whether a further signal, so long after the first one, is meant to end the process at once. A terminal that
    /// closes sends more than one SIGHUP, and programs that run others pass a signal on twice.
    static bool insists(int signal, std::chrono::nanoseconds sinceFirst);
    /// Ends the process by the signal, as if it had never been caught. Safe in a signal handler.
    static void die(int signal);

private:
    static constexpr std::array interrupts{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, interrupts.size()> before{};
};
