#pragma once

#include "app/InterruptHandler.h"
#include "platform/threads/CancelFlag.h"

#include <optional>

/// While it lives, SIGINT, SIGTERM and SIGHUP set the cancel flag instead of ending the process; those that were
/// ignored stay so. One at a time; the flag must outlive it.
class InterruptSignals {
public:
    explicit InterruptSignals(CancelFlag &flag);
    ~InterruptSignals();
    InterruptSignals(const InterruptSignals &) = delete;
    InterruptSignals &operator=(const InterruptSignals &) = delete;

private:
    std::optional<InterruptHandler> handler;
};
