#include "render/ToolFrames.h"

#include "platform/threads/AlternateStack.h"

#include <system_error>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto cancelInterval = 20ms; // how often the cancel flag is looked at

} // namespace

ToolFrames::ToolFrames(FrameGrabber &grabber, MovieTiles tiles, const CancelFlag &cancelled) :
    grabber_(grabber), tiles_(std::move(tiles)), cancelled_(cancelled)
{
    try {
        thread_ = std::jthread([this] { run(); });
    } catch (const std::system_error &) {
        // The system gives no thread: each grab then runs when it is asked for.
    }
}

ToolFrames::~ToolFrames()
{
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    changed_.notify_all();
}

GrabbedFrame ToolFrames::next(const FrameGrabber::Waiting &waiting)
{
    if (last_.hasHung) {
        last_.isNew = false;
        return last_;
    }
    const std::int64_t tile = asked_++;
    last_ = FrameGrabber::decode(
        thread_.joinable() ? take(waiting) : grabber_.grab(tiles_.moviePath, tiles_.timeOf(tile), cancelled_, waiting));
    return last_;
}

GrabbedFile ToolFrames::take(const FrameGrabber::Waiting &waiting)
{
    std::unique_lock lock(mutex_);
    std::chrono::seconds told = 0s;
    while (!grabbed_ && !failure_) {
        if (cancelled_) {
            stop_ = true;
            return {};
        }
        changed_.wait_for(lock, cancelInterval);
        if (waiting && waited_ > told) {
            told = waited_;
            lock.unlock();
            waiting(told);
            lock.lock();
        }
    }
    if (!grabbed_) {
        std::rethrow_exception(failure_);
    }
    GrabbedFile file = *std::move(grabbed_);
    grabbed_.reset();
    changed_.notify_all();
    return file;
}

void ToolFrames::run()
try {
    const AlternateStack stack;
    const auto waiting = [this](std::chrono::seconds time) {
        const std::lock_guard lock(mutex_);
        waited_ = time;
        changed_.notify_all();
    };
    for (std::int64_t tile = 0; tile < tiles_.count; ++tile) {
        waiting(0s);
        if (!hand(grabber_.grab(tiles_.moviePath, tiles_.timeOf(tile), stop_, waiting))) {
            return;
        }
    }
} catch (...) { // memory that has run out; whoever asks for the frame hears of it
    const std::lock_guard lock(mutex_);
    failure_ = std::current_exception();
    changed_.notify_all();
}

bool ToolFrames::hand(GrabbedFile file)
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !grabbed_ || stop_; });
    const bool goesOn = !stop_ && !file.hasHung;
    grabbed_ = std::move(file);
    changed_.notify_all();
    return goesOn;
}
