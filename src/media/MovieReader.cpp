#include "media/MovieReader.h"

#include "media/FFmpegGenerations.h"

extern "C" {
#include <libavutil/common.h>
}

#include <algorithm>
#include <array>
#include <new>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

using namespace FFmpegHandles;

namespace {

/// The time for one picture, as for a run of the tool: a long stretch between key frames of an 8K movie may take
/// minutes, whoever decodes it.
constexpr auto longestWork = std::chrono::minutes(10);
/// The packets, of all streams, that may be read for one picture: some hours of a movie whose only key frame is the
/// first. Stops a demuxer that gives empty packets for ever before the time is over.
constexpr int mostPackets = 4'000'000;
/// How far back the search for a key frame begins where there is no index; as movies are made, one is mostly there.
constexpr std::int64_t firstStepBack = std::int64_t{2} * AV_TIME_BASE;

/// The end of all times, 36,000 years: files may say any, and they must add up.
constexpr std::int64_t farthest = std::int64_t{1} << 60;

/// The demuxers that find their key frames by an index. Only there does decoding on from the last picture give the
/// frame that seeking would; elsewhere the tool lands at other places than between two packets.
constexpr std::array<std::string_view, 4> withIndex = {"mov,mp4,m4a,3gp,3g2,mj2", "matroska,webm", "avi", "asf"};
/// The one whose index has places to begin at, some way before the times that it gives.
constexpr std::string_view withRoughIndex = "asf";

} // namespace

MovieReader::MovieReader(QByteArray path, const CancelFlag &cancelled) :
    path_(std::move(path)), cancelled_(cancelled), packet_(av_packet_alloc())
{
    if (!packet_) {
        throw std::bad_alloc();
    }
}

Result<void> MovieReader::open()
{
    input_ = std::make_unique<MovieInput>(cancelled_);
    input_->stopAt(MovieInput::Clock::now() + longestWork);
    auto opened = input_->open(path_);
    if (!opened) {
        return opened;
    }
    stream_ = input_->chooseVideo();
    if (!stream_) {
        return failure(u"has no pictures"_s);
    }
    hasIndex_ = std::ranges::find(withIndex, context().iformat->name) != withIndex.end();
    isWhole_ = false;
    isFresh_ = true;
    return {};
}

void MovieReader::beginPicture()
{
    input_->stopAt(MovieInput::Clock::now() + longestWork);
    packetsLeft_ = mostPackets;
}

QString MovieReader::problem() const
{
    return cancelled_ ? MovieInput::describe(AVERROR_EXIT) : u"takes too long to decode"_s;
}

std::int64_t MovieReader::fromStart(std::int64_t time) const
{
    const std::int64_t start = context().start_time;
    return std::clamp(start == AV_NOPTS_VALUE ? time : av_sat_add64(time, start), -farthest, farthest);
}

std::int64_t MovieReader::shownFrom(std::int64_t time) const
{
    if constexpr (FFmpegGenerations::toolForgetsStart) {
        const std::int64_t start = av_rescale_q(stream_->start_time, stream_->time_base, AV_TIME_BASE_Q);
        const bool jumps = (context().iformat->flags & AVFMT_TS_DISCONT) != 0;
        if (jumps && stream_->start_time != AV_NOPTS_VALUE && start != context().start_time) {
            return std::max(time, start);
        }
    }
    return fromStart(time);
}

std::int64_t MovieReader::keyBefore(std::int64_t ticks) const
{
    const AVIndexEntry *entry = avformat_index_get_entry_from_timestamp(stream_, ticks, AVSEEK_FLAG_BACKWARD);
    return entry ? entry->timestamp : AV_NOPTS_VALUE;
}

/// Whether the index has a key frame at or after these ticks.
bool MovieReader::hasKeyFrom(std::int64_t ticks) const
{
    return avformat_index_get_entry_from_timestamp(stream_, ticks, 0) != nullptr;
}

void MovieReader::loadIndex()
{
    if (hasIndex_ && isFresh_) { // some read it when they seek
        seekForKey(fromStart(0));
    }
}

/// Whether the demuxer may leave out the other streams; a seek takes note of them.
void MovieReader::dropOthers(bool drop)
{
    for (AVStream *stream : input_->streams()) {
        stream->discard = drop && stream != stream_ ? AVDISCARD_ALL : AVDISCARD_DEFAULT;
    }
}

Result<bool> MovieReader::seekAsTheTool(std::int64_t time)
{
    const int keys = avformat_index_get_entries_count(stream_);
    const bool isKnown = hasKeyFrom(inTicks(time));
    // Without an index, what has been read changes where a seek lands.
    bool isFound = (hasIndex_ || isFresh_) && trySeekAsTheTool(time);
    if (!isFound && !isFresh_) {
        // Where it cannot seek, the tool reads on from where it was after looking into the streams.
        if (const auto opened = open(); !opened) {
            return failure(opened.error());
        }
        isFound = trySeekAsTheTool(time);
    }
    isWhole_ = isWhole_ || (!isFresh_ && !isKnown && keys == avformat_index_get_entries_count(stream_));
    isFresh_ = false;
    dropOthers(true);
    return isFound && hasIndex_;
}

bool MovieReader::trySeekAsTheTool(std::int64_t time)
{
    const auto isReordered = [](const AVStream *stream) { return stream->codecpar->video_delay != 0; };
    const bool seeksDecodingTime = (context().iformat->flags & AVFMT_SEEK_TO_PTS) == 0;
    const std::int64_t early = seeksDecodingTime && std::ranges::any_of(input_->streams(), isReordered)
                                   ? std::int64_t{3} * AV_TIME_BASE / 23
                                   : 0;
    dropOthers(false);
    return avformat_seek_file(&context(), -1, INT64_MIN, time - early, time - early, 0) >= 0;
}

AVPacket *MovieReader::read()
{
    while (!mustStop()) {
        --packetsLeft_;
        av_packet_unref(packet_.get());
        const int code = av_read_frame(&context(), packet_.get());
        if (code < 0 && code != AVERROR(EAGAIN)) {
            break;
        }
        if (code >= 0 && packet_->stream_index == stream_->index) {
            return packet_.get();
        }
    }
    return nullptr;
}

Result<std::vector<Packet>> MovieReader::readKey(std::int64_t time)
{
    std::vector<Packet> key;
    std::int64_t back = hasIndex_ ? 0 : firstStepBack;
    const std::int64_t start = fromStart(0);
    while (time - back > start && !mustStop()) {
        if (seekForKey(time - back) && readKeyBefore(inTicks(time), key)) {
            return key;
        }
        back = std::max(2 * back, firstStepBack);
    }
    if (!isFresh_ && !(hasIndex_ && seekForKey(start))) {
        if (const auto opened = open(); !opened) {
            return failure(opened.error());
        }
    }
    readKeyBefore(inTicks(time), key);
    return mustStop() ? failure(problem()) : Result<std::vector<Packet>>(std::move(key));
}

bool MovieReader::seekForKey(std::int64_t time)
{
    isFresh_ = false;
    return av_seek_frame(&context(), stream_->index, inTicks(time), AVSEEK_FLAG_BACKWARD) >= 0;
}

/// Reads on up to the time and keeps the last key frame, or the first one behind it; false when that is behind it.
bool MovieReader::readKeyBefore(std::int64_t ticks, std::vector<Packet> &key)
{
    isFresh_ = false;
    dropOthers(true);
    key.clear();
    const bool endsAtFirst = hasIndex_ && context().iformat->name != withRoughIndex && knowsKeysUpTo(ticks);
    bool isBefore = false;
    while (const AVPacket *packet = read()) {
        const bool isLate = timeOf(*packet) > ticks;
        const bool isKey = (packet->flags & AV_PKT_FLAG_KEY) != 0;
        if (isKey && (key.empty() || !isLate)) {
            key.clear();
            isBefore = !isLate;
        }
        if (key.size() < packetsPerFrame() && (isKey || !key.empty())) {
            key.emplace_back(av_packet_clone(packet));
        }
        if (key.size() == packetsPerFrame() && (endsAtFirst || isLate)) {
            break;
        }
    }
    return isBefore;
}

/// Fields may come in packets of their own.
std::size_t MovieReader::packetsPerFrame() const
{
    return stream_->codecpar->field_order > AV_FIELD_PROGRESSIVE ? 2 : 1;
}

std::int64_t MovieReader::timeOf(const AVPacket &packet)
{
    return packet.pts != AV_NOPTS_VALUE ? packet.pts : packet.dts;
}

Result<void> MovieReader::goToKeyBefore(std::int64_t time)
{
    if (!seekForKey(time)) {
        if (auto opened = open(); !opened) {
            return opened;
        }
    }
    dropOthers(true);
    return {};
}

Result<std::vector<Packet>> MovieReader::readKeyBehind(std::int64_t ticks)
{
    std::vector<Packet> key;
    while (const AVPacket *packet = key.size() < packetsPerFrame() ? read() : nullptr) {
        const bool isKey = (packet->flags & AV_PKT_FLAG_KEY) != 0;
        if (!key.empty() || (isKey && timeOf(*packet) > ticks)) {
            key.emplace_back(av_packet_clone(packet));
        }
    }
    return mustStop() ? failure(problem()) : Result<std::vector<Packet>>(std::move(key));
}
