#pragma once

#include "app/InterruptHandler.h"
#include "platform/files/FileDescriptor.h"

#include <QSocketNotifier>

#include <functional>
#include <optional>

/// While it lives, SIGINT, SIGTERM and SIGHUP ask the program to quit instead of ending it; those that were ignored
/// stay so. Main thread, with an event loop; one at a time.
class QuitSignals {
public:
    /// The request is called from the event loop: once or more for one signal or several, never in a signal handler.
    explicit QuitSignals(std::function<void()> request);
    ~QuitSignals();
    QuitSignals(const QuitSignals &) = delete;
    QuitSignals &operator=(const QuitSignals &) = delete;

private:
    void takeSignals();

    std::function<void()> quitRequested;
    FileDescriptor counter; ///< of signals that have come; wakes the event loop
    QSocketNotifier notifier;
    std::optional<InterruptHandler> handler;
};
