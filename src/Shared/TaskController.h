#pragma once

#include <QString>

#include <chrono>

/// Hears of a tool's life; every call is optional. Calls arrive on the thread that started the tool, while it waits for
/// the tool's end.
class TaskController {
public:
    virtual ~TaskController() = default;

    /// The tool is about to be run.
    virtual void processStarted() {}
    /// The tool has printed this text, on either of its outputs.
    virtual void appendOutput(const QString & /*text*/) {}
    /// It has been running for so long; called several times a second.
    virtual void processRuns(std::chrono::milliseconds /*time*/) {}
    /// The tool's output has ended, or the tool was asked to stop.
    virtual void processFinished() {}
    /// The tool has ended: its exit status, or the number of the signal that ended it. Nothing follows this.
    virtual void launcherDidTerminatedWithCode(int /*exitStatus*/) {}
};
