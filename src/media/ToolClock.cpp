#include "media/ToolClock.h"

#include "media/FFmpegGenerations.h"

extern "C" {
#include <libavutil/common.h>
}

#include <algorithm>

namespace {

/// A step of more than this, or back by more than that, is a jump in the movie's time.
constexpr std::int64_t longestStep = std::int64_t{10} * AV_TIME_BASE;
constexpr std::int64_t longestStepBack = AV_TIME_BASE / 10;

constexpr bool isKnown(std::int64_t time)
{
    return time != AV_NOPTS_VALUE;
}

// Files may say any time, so sums of times are those of av_sat_add64(): the nearest number that there is.

/// Microseconds of a time in the stream's own units, unknown for an unknown one.
std::int64_t inMicroseconds(std::int64_t time, const AVStream &stream)
{
    return av_rescale_q_rnd(time, stream.time_base, AV_TIME_BASE_Q,
                            static_cast<AVRounding>(AV_ROUND_NEAR_INF | AV_ROUND_PASS_MINMAX));
}

} // namespace

ToolClock::ToolClock(const AVFormatContext &context, AVStream &stream, std::int64_t target) :
    stream_(stream), jumps_((context.iformat->flags & AVFMT_TS_DISCONT) != 0), target_(target)
{
}

void ToolClock::move(AVPacket &packet, std::int64_t time) const
{
    const std::int64_t ticks = av_rescale_q(time, AV_TIME_BASE_Q, stream_.time_base);
    if (isKnown(packet.dts)) {
        packet.dts = av_sat_add64(packet.dts, ticks);
    }
    if (isKnown(packet.pts)) {
        packet.pts = av_sat_add64(packet.pts, ticks);
    }
}

void ToolClock::smooth(AVPacket &packet)
{
    move(packet, shift_);
    const std::int64_t dts = inMicroseconds(packet.dts, stream_);
    const std::int64_t expected = isKnown(nextDts_) ? nextDts_ : lastDts_;
    if (isKnown(dts) && isKnown(expected)) {
        const std::int64_t step = std::max(av_sat_sub64(dts, expected), -INT64_MAX);
        const bool goesBack = isKnown(nextDts_) && av_sat_add64(dts, longestStepBack) < std::max(pts_, dts_);
        if (step > longestStep || step < -longestStep || goesBack) {
            shift_ = av_sat_add64(shift_, -step);
            move(packet, -step);
        }
    }
    if (isKnown(packet.dts)) {
        lastDts_ = inMicroseconds(packet.dts, stream_);
    }
}

/// How long the decoder's frame takes by the stream's rate, 0 when it has none.
std::int64_t ToolClock::usualDuration(const AVCodecContext &decoder) const
{
    const AVRational rate = stream_.avg_frame_rate;
    if (rate.num <= 0 || rate.den <= 0) {
        return 0;
    }
    const AVCodecParserContext *parser = av_stream_get_parser(&stream_);
    const int fields = FFmpegGenerations::fieldsPerFrame(decoder);
    return av_rescale(std::int64_t{AV_TIME_BASE} * rate.den, parser ? parser->repeat_pict + 1 : fields,
                      std::int64_t{rate.num} * fields);
}

void ToolClock::stamp(AVPacket &packet, const AVCodecContext &decoder)
{
    if (jumps_) {
        smooth(packet);
    }
    if (!hasStarted_) {
        const AVRational rate = stream_.avg_frame_rate;
        dts_ = target_;
        if (rate.num > 0 && rate.den > 0) {
            dts_ =
                av_sat_add64(dts_, -av_rescale(std::int64_t{AV_TIME_BASE} * decoder.has_b_frames, rate.den, rate.num));
        }
        pts_ = target_;
        hasStarted_ = true;
    }
    if (isKnown(packet.dts)) {
        nextDts_ = inMicroseconds(packet.dts, stream_);
    } else if (!isKnown(nextDts_)) {
        nextDts_ = dts_;
    }
    if (!isKnown(nextPts_)) {
        nextPts_ = pts_;
    }
    dts_ = nextDts_;
    pts_ = nextPts_;
    packet.dts = av_rescale_q(dts_, AV_TIME_BASE_Q, stream_.time_base);
    lastDuration_ = packet.duration != 0 ? inMicroseconds(packet.duration, stream_) : usualDuration(decoder);
    nextDts_ = lastDuration_ != 0 ? av_sat_add64(dts_, lastDuration_) : AV_NOPTS_VALUE;
}

void ToolClock::end(const AVCodecContext &decoder)
{
    hasEnded_ = true;
    lastDuration_ = usualDuration(decoder);
}

void ToolClock::hear(AVFrame &frame)
{
    if (hasEnded_ && !isKnown(frame.best_effort_timestamp) && isKnown(nextDts_)) {
        frame.best_effort_timestamp = av_rescale_q(nextDts_, AV_TIME_BASE_Q, stream_.time_base);
        nextDts_ = av_sat_add64(nextDts_, lastDuration_);
    }
    if (isKnown(frame.best_effort_timestamp)) {
        nextPts_ = inMicroseconds(frame.best_effort_timestamp, stream_);
    }
    const std::int64_t duration = FFmpegGenerations::durationOf(frame);
    nextPts_ = av_sat_add64(nextPts_, duration > 0 ? inMicroseconds(duration, stream_) : lastDuration_);
    pts_ = nextPts_;
    if (isKnown(nextDts_)) {
        dts_ = nextDts_;
    }
}
