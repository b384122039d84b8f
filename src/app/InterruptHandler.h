#pragma once

#include <array>
#include <csignal>

/// While it lives, SIGINT, SIGTERM and SIGHUP call the handler instead of ending the process; those that were ignored
/// stay so. System calls that they interrupt go on. One at a time.
class InterruptHandler {
public:
    /// The handler may only do what is safe in a signal handler; it runs on any thread.
    explicit InterruptHandler(void (*handler)(int signal));
    ~InterruptHandler();
    InterruptHandler(const InterruptHandler &) = delete;
    InterruptHandler &operator=(const InterruptHandler &) = delete;

private:
    static constexpr std::array interrupts{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, interrupts.size()> before{};
};
