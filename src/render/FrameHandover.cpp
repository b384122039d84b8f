#include "render/FrameHandover.h"

using namespace std::chrono_literals;

namespace {

constexpr auto cancelInterval = 20ms; // how often the cancel flag is looked at

} // namespace

void FrameHandover::fail()
{
    const std::lock_guard lock(mutex_);
    failure_ = std::current_exception();
    changed_.notify_all();
}

bool FrameHandover::await(Lock &lock, const std::function<bool()> &isThere, const Clock::time_point &start,
                          const CancelFlag &cancelled, const FrameGrabber::Waiting &waiting)
{
    std::chrono::seconds told = 1s; // the first second is nothing to tell of
    while (!isThere() && !failure_ && !cancelled) {
        changed_.wait_for(lock, cancelInterval);
        const auto waited = std::chrono::floor<std::chrono::seconds>(Clock::now() - start);
        if (waiting && waited > told) {
            told = waited;
            lock.unlock();
            waiting(told);
            lock.lock();
        }
    }
    if (cancelled) {
        return false;
    }
    if (!isThere()) {
        std::rethrow_exception(failure_);
    }
    return true;
}
