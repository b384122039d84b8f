#include "render/ToolFrames.h"

#include "media/BlankPicture.h"
#include "platform/threads/AlternateStack.h"

#include <system_error>
#include <utility>

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
    const auto lock = handover_.lock();
    stop_ = true;
    handover_.tell();
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
    auto lock = handover_.lock();
    if (!handover_.await(
            lock, [this] { return grabbed_.has_value(); }, begun_, cancelled_, waiting)) {
        stop_ = true;
        return {};
    }
    GrabbedFile file = *std::exchange(grabbed_, std::nullopt);
    handover_.tell();
    return file;
}

void ToolFrames::run()
try {
    const AlternateStack stack;
    for (std::int64_t tile = 0; tile < tiles_.count; ++tile) {
        {
            const auto lock = handover_.lock();
            begun_ = FrameHandover::Clock::now();
        }
        if (!hand(grab(tile, stop_, {}))) {
            return;
        }
    }
} catch (...) { // memory that has run out; whoever asks for the frame hears of it
    handover_.fail();
}

bool ToolFrames::hand(GrabbedFile file)
{
    auto lock = handover_.lock();
    handover_.waitUntil(lock, [this] { return !grabbed_ || stop_; });
    const bool goesOn = !stop_ && !file.hasHung;
    grabbed_ = std::move(file);
    handover_.tell();
    return goesOn;
}
