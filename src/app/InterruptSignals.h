#pragma once

#include "platform/CancelFlag.h"

#include <array>
#include <csignal>

/// While it lives, SIGINT, SIGTERM and SIGHUP set the cancel flag instead of ending the process; those that were
/// ignored stay so. One at a time; the flag must outlive it.
class InterruptSignals {
public:
    explicit InterruptSignals(CancelFlag &flag);
    ~InterruptSignals();
    InterruptSignals(const InterruptSignals &) = delete;
    InterruptSignals &operator=(const InterruptSignals &) = delete;

private:
    static constexpr std::array interrupts{SIGINT, SIGTERM, SIGHUP};
    std::array<struct sigaction, interrupts.size()> before{};
};
