#include "media/ToolWalk.h"

#include "media/StreamDecoder.h"

extern "C" {
#include <libavutil/common.h>
}

#include <algorithm>
#include <new>

using namespace FFmpegHandles;

ToolWalk::ToolWalk(MovieReader &reader) : reader_(reader), frame_(av_frame_alloc())
{
    if (!frame_) {
        throw std::bad_alloc();
    }
}

Result<bool> ToolWalk::goTo(std::int64_t time)
{
    reader_.beginPicture();
    const std::int64_t target = reader_.inTicks(reader_.shownFrom(time));
    if (!canGoOnTo(target)) {
        if (const auto found = seek(time); !found) {
            return failure(found.error());
        }
    }
    sought_ = target;
    while (reached_ == AV_NOPTS_VALUE || reached_ < target) {
        auto decoded = decodeNext(target);
        if (!decoded || !*decoded) {
            canGoOn_ = false;
            return decoded;
        }
        reached_ = frame_->best_effort_timestamp;
    }
    return true;
}

Result<void> ToolWalk::seek(std::int64_t time)
{
    canGoOn_ = false;
    reached_ = AV_NOPTS_VALUE;
    const auto found = reader_.seekAsTheTool(reader_.fromStart(time));
    if (!found) {
        return failure(found.error());
    }
    clock_.emplace(reader_.context(), reader_.stream(), reader_.shownFrom(time));
    // A new one for every seek: an old one keeps what it has learnt of the stream's order, which the tool cannot know.
    decoder_.reset();
    auto opened = openDecoder(reader_.stream(), threads_);
    if (!opened) {
        return failure(opened.error());
    }
    decoder_ = *std::move(opened);
    canGoOn_ = *found;
    return {};
}

/// Whether decoding on leads to this time sooner than seeking, and to the same frame.
bool ToolWalk::canGoOnTo(std::int64_t ticks) const
{
    if (!canGoOn_ || ticks < sought_) {
        return false;
    }
    const std::int64_t key = reader_.keyBefore(ticks);
    return ticks <= reached_ || (reader_.knowsKeysUpTo(ticks) && key != AV_NOPTS_VALUE && key <= reached_);
}

/// Decodes one more frame; false at the end.
Result<bool> ToolWalk::decodeNext(std::int64_t target)
{
    while (!reader_.mustStop()) {
        const int code = avcodec_receive_frame(decoder_.get(), frame_.get());
        if (code == AVERROR_EOF) {
            return false;
        }
        if (code == AVERROR(ENOMEM)) {
            throw std::bad_alloc();
        }
        if (code < 0) {
            feed(target);
            continue;
        }
        clock_->hear(*frame_);
        if (frame_->best_effort_timestamp != AV_NOPTS_VALUE) { // the tool drops those without a time
            return true;
        }
    }
    return failure(reader_.problem());
}

/// Gives the decoder the next packet, or the end. Damaged ones it refuses, which changes nothing.
void ToolWalk::feed(std::int64_t target)
{
    AVPacket *packet = reader_.read();
    if (!packet) {
        clock_->end(*decoder_);
        avcodec_send_packet(decoder_.get(), nullptr);
        return;
    }
    if (packet->size == 0) { // would mean the end
        return;
    }
    clock_->stamp(*packet, *decoder_);
    // Frames that no other refers to need not be decoded before the target; two packets may make one frame.
    const std::int64_t twoLater =
        av_sat_add64(packet->pts, 2 * std::clamp<std::int64_t>(packet->duration, 0, INT32_MAX));
    const bool isEarly = packet->pts != AV_NOPTS_VALUE && packet->pts < target && twoLater <= target;
    decoder_->skip_frame = isEarly ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    avcodec_send_packet(decoder_.get(), packet);
}

Result<bool> ToolWalk::goOn()
{
    sought_ = av_sat_add64(reached_, 1); // from there on it is the first one
    while (reached_ < sought_) {
        auto decoded = decodeNext(sought_);
        if (!decoded || !*decoded) {
            canGoOn_ = false;
            return decoded;
        }
        reached_ = std::max(reached_, frame_->best_effort_timestamp);
    }
    return true;
}
