#pragma once

#include <deque>
#include <functional>

/// Lets one job run at a time: a batch that arrives while another, or an export, is running waits its turn, and nothing
/// handed over is lost. Main thread.
class JobSequence {
public:
    /// Starts a job; the job must call finished() on this object, later, when it has ended.
    using Start = std::function<void()>;

    /// Starts the job now, or when those before it have finished.
    void add(Start start);
    /// The running job has ended: starts the next one.
    void finished();
    /// Forgets the jobs that have not started.
    void dropWaiting() { waiting_.clear(); }

    bool isRunning() const { return running_; }

private:
    std::deque<Start> waiting_;
    bool running_ = false;
};
