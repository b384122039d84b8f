#include "render/DecodedFrames.h"

#include "media/BlankPicture.h"
#include "media/FrameDecoder.h"
#include "platform/threads/AlternateStack.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace {

constexpr std::int64_t largestPart = 1024;          // tiles: their pictures are held until they are painted
constexpr std::int64_t decoderMemory = 800'000'000; // bytes, of all decoders
constexpr std::int64_t framesPerDecoder = 12; // those that one holds for others to refer to; a thread holds one more
constexpr double longStretch = 1.0;           // seconds of a movie that are worth several threads

/// What pictures go through in the decoder, which turns them upright later than the tool does.
QByteArray filtersOf(const MovieTiles &tiles, QSize size)
{
    const QSize decoded = tiles.traits.isOnItsSide ? size.transposed() : size;
    return PictureFilter::chain(tiles.options, tiles.traits, decoded).toLatin1();
}

} // namespace

DecodedFrames::DecodedFrames(MovieTiles tiles, const CancelFlag &cancelled) :
    tiles_(std::move(tiles)), cancelled_(cancelled)
{
    startPart();
}

DecodedFrames::~DecodedFrames()
{
    stop_ = true;
}

GrabbedFrame DecodedFrames::next(const FrameGrabber::Waiting &waiting)
{
    if (asked_ - first_ == largestPart) {
        startPart();
    }
    GrabbedFrame frame = await(static_cast<std::size_t>(asked_ - first_), waiting);
    ++asked_;
    frame.isNew = !frame.picture.isNull();
    last_ = frame.isNew ? frame.picture : last_;
    frame.picture = last_;
    return frame;
}

GrabbedFrame DecodedFrames::await(std::size_t place, const FrameGrabber::Waiting &waiting)
{
    auto lock = handover_.lock();
    const auto isThere = [this, place] { return frames_[place].has_value(); };
    if (!handover_.await(lock, isThere, FrameHandover::Clock::now(), cancelled_, waiting)) {
        stop_ = true;
        return {};
    }
    return std::exchange(*frames_[place], {}); // its picture is not held any longer
}

void DecodedFrames::startPart()
{
    workers_.clear(); // all have ended: their tiles have been taken
    first_ = asked_;
    frames_.assign(static_cast<std::size_t>(std::min(tiles_.count - first_, largestPart)), std::nullopt);
    if (frames_.empty()) {
        return;
    }
    auto opened = FrameDecoder::open(tiles_.moviePath, stop_);
    if (!opened) {
        std::ranges::fill(frames_, GrabbedFrame{.picture = {}, .problem = opened.error()});
        return;
    }
    plan(*opened);
    const Crew crew = crewFor(opened->bytesPerFrame());
    std::optional<FrameDecoder> first = *std::move(opened);
    try {
        for (std::size_t index = 0; index < crew.workers; ++index) {
            workers_.emplace_back(
                [this, threads = crew.threads, decoder = std::exchange(first, std::nullopt)]() mutable {
                    work(std::move(decoder), threads);
                });
        }
    } catch (const std::system_error &) { // the system gives no more threads
        if (workers_.empty()) {
            work(std::nullopt, 1);
        }
    }
}

/// Neighbours with the same key frame make a group; without an index each tile is one.
void DecodedFrames::plan(FrameDecoder &decoder)
{
    std::optional<double> lastKey;
    for (std::size_t place = 0; place < frames_.size(); ++place) {
        const std::int64_t tile = first_ + static_cast<std::int64_t>(place);
        const double time = tiles_.timeOf(tile);
        const auto key = decoder.keyTimeBefore(time);
        if (groups_.empty() || !key || key != lastKey) {
            groups_.emplace_back();
        }
        groups_.back().tiles.push_back(tile);
        groups_.back().cost = key ? time - *key : 0.0;
        lastKey = key;
    }
    if (tiles_.options.source == FrameSource::Exact) {
        std::ranges::stable_sort(groups_, {}, &Group::cost);
    } else {
        std::ranges::reverse(groups_);
    }
}

/// A worker for each core, as far as there are groups and memory. Cores that are left over help with threads, which
/// share out one group's frames less well than workers share out groups.
DecodedFrames::Crew DecodedFrames::crewFor(std::int64_t bytesPerFrame) const
{
    const auto groups = static_cast<std::int64_t>(groups_.size());
    const auto cores = static_cast<std::int64_t>(std::max(1U, std::thread::hardware_concurrency()));
    const std::int64_t frames = decoderMemory / std::max<std::int64_t>(bytesPerFrame, 1);
    const std::int64_t workers = std::clamp<std::int64_t>(frames / framesPerDecoder, 1, std::min(groups, cores));
    const std::int64_t wanted = (cores + groups - 1) / groups;
    const std::int64_t affordable = frames / workers - framesPerDecoder;
    return {static_cast<std::size_t>(workers), static_cast<int>(std::clamp<std::int64_t>(affordable, 1, wanted))};
}

void DecodedFrames::work(std::optional<FrameDecoder> decoder, int threads)
try {
    const AlternateStack stack;
    while (const auto group = takeGroup()) {
        for (const std::int64_t tile : group->tiles) {
            if (stop_) {
                return;
            }
            if (!decoder) {
                auto opened = FrameDecoder::open(tiles_.moviePath, stop_);
                if (!opened) {
                    put(tile, {.picture = {}, .problem = opened.error()});
                    continue;
                }
                decoder = *std::move(opened);
            }
            decoder->useThreads(group->cost >= longStretch ? threads : 1);
            decode(*decoder, tile);
        }
    }
} catch (...) { // memory that has run out; whoever asks for the frame hears of it
    handover_.fail();
}

void DecodedFrames::decode(FrameDecoder &decoder, std::int64_t tile)
{
    const QSize size = tiles_.reducedSize(tile);
    decoder.scaleTo(size);
    decoder.filterBy(filtersOf(tiles_, size));
    const double time = tiles_.timeOf(tile);
    const bool isKey = tiles_.options.source == FrameSource::Key;
    auto picture = isKey ? decoder.keyFrame(time) : decoder.exactFrame(time);
    GrabbedFrame frame;
    if (picture) {
        frame.picture = *std::move(picture);
    } else {
        frame.problem = picture.error();
    }
    if (tiles_.options.skipBlank && isBlank(frame.picture)) {
        const double end = time + tiles_.share;
        auto found = isKey ? decoder.keyContent(time, end) : decoder.exactContent(time, end);
        if (found && !found->picture.isNull()) {
            frame.picture = std::move(found->picture);
            frame.seconds = found->seconds;
        }
    }
    put(tile, std::move(frame));
}

std::optional<DecodedFrames::Group> DecodedFrames::takeGroup()
{
    const auto lock = handover_.lock();
    if (groups_.empty()) {
        return std::nullopt;
    }
    Group group = std::move(groups_.back());
    groups_.pop_back();
    return group;
}

void DecodedFrames::put(std::int64_t tile, GrabbedFrame frame)
{
    const auto lock = handover_.lock();
    frames_[static_cast<std::size_t>(tile - first_)] = std::move(frame);
    handover_.tell();
}
