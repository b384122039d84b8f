#include "render/ToolFrames.h"

#include "media/BlankPicture.h"
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
        last_.seconds.reset();
        return last_;
    }
    const std::int64_t tile = asked_++;
    last_ = FrameGrabber::decode(thread_.joinable() ? take(waiting) : grab(tile, cancelled_, waiting));
    return last_;
}

GrabbedFile ToolFrames::grab(std::int64_t tile, const CancelFlag &cancelled, const FrameGrabber::Waiting &waiting)
{
    FrameWish wish{tiles_.moviePath, tiles_.timeOf(tile), tiles_.filters(tile)};
    GrabbedFile file = grabber_.grab(wish, cancelled, waiting);
    if (!tiles_.options.skipBlank || !file.isNew || !isBlank(FrameGrabber::decode(file).picture)) {
        return file;
    }
    const auto seconds = contentBehind(wish.seconds, cancelled);
    if (!seconds) {
        return file;
    }
    wish.seconds = *seconds;
    GrabbedFile other = grabber_.grab(wish, cancelled, waiting);
    other.seconds = seconds;
    return other.isNew || other.hasHung ? other : file;
}

/// Where the tool is to look instead; nothing where all of the tile's share is of one colour.
std::optional<double> ToolFrames::contentBehind(double seconds, const CancelFlag &cancelled)
{
    if (!search_) {
        auto opened = FrameDecoder::open(tiles_.moviePath, cancelled);
        if (!opened) {
            return {};
        }
        search_ = *std::move(opened);
        search_->useThreads(static_cast<int>(std::thread::hardware_concurrency())); // the tool does not run meanwhile
    }
    search_->scaleTo(judgedSize); // its picture is not looked at
    const auto found = search_->exactContent(seconds, seconds + tiles_.share);
    return found && !found->picture.isNull() ? std::optional(found->seconds) : std::nullopt;
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
        if (!hand(grab(tile, stop_, waiting))) {
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
