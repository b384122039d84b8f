#pragma once

#include "media/FFmpegHandles.h"

#include <cstdint>

/// Reckons the times of packets and frames as the ffmpeg tool does after `-ss`: where a stream does not say when a
/// packet is decoded it goes on from the packet before, and where the time of a transport or program stream jumps it
/// goes on as if it had not. For the .cpp files of this layer only.
class ToolClock {
public:
    /// `target` is the time sought, in microseconds of the container's time.
    ToolClock(const AVFormatContext &context, AVStream &stream, std::int64_t target);

    /// Gives the packet, which is about to be decoded, the tool's times.
    void stamp(AVPacket &packet, const AVCodecContext &decoder);
    /// No packet follows: from now on, frames without a time go on from the last packet.
    void end(const AVCodecContext &decoder);
    /// The decoder has given this frame, which gets the tool's time in `best_effort_timestamp`.
    void hear(AVFrame &frame);

private:
    void move(AVPacket &packet, std::int64_t time) const;
    void smooth(AVPacket &packet);
    std::int64_t usualDuration(const AVCodecContext &decoder) const;

    AVStream &stream_;
    const bool jumps_;
    const std::int64_t target_;
    bool hasStarted_ = false;
    bool hasEnded_ = false;
    // All in microseconds: what the tool has added to the stream's times, and the times of the packet and the frame in
    // hand and of those that it expects next.
    std::int64_t shift_ = 0;
    std::int64_t dts_ = AV_NOPTS_VALUE;
    std::int64_t pts_ = AV_NOPTS_VALUE;
    std::int64_t nextDts_ = AV_NOPTS_VALUE;
    std::int64_t nextPts_ = AV_NOPTS_VALUE;
    std::int64_t lastDts_ = AV_NOPTS_VALUE;
    std::int64_t lastDuration_ = 0;
};
