#pragma once

#include "Shared/FrameGrabber.h"
#include "platform/threads/CancelFlag.h"

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>

/// Where the threads that make frames meet the one that waits for them. What they hand over stands beside it, guarded
/// by its lock.
class FrameHandover {
public:
    using Clock = std::chrono::steady_clock;
    using Lock = std::unique_lock<std::mutex>;

    Lock lock() { return Lock(mutex_); }
    /// Something has changed for those that wait.
    void tell() { changed_.notify_all(); }
    /// From a handler of exceptions: whoever waits for a frame gets this one instead.
    void fail();

    /// Waits under the lock until `isOver`; without a flag to look at.
    void waitUntil(Lock &lock, const std::function<bool()> &isOver) { changed_.wait(lock, isOver); }
    /// Waits under the lock until `isThere`; false when `cancelled` has come first. `waiting`, which may be empty,
    /// hears without the lock of each second since `start`, from the second one on; that may change meanwhile.
    bool await(Lock &lock, const std::function<bool()> &isThere, const Clock::time_point &start,
               const CancelFlag &cancelled, const FrameGrabber::Waiting &waiting);

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::exception_ptr failure_;
};
