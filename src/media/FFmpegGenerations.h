#pragma once

#include <QByteArray>
#include <QStringBuilder>

#include <cstdint>
#include <span>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavfilter/version.h>
#include <libavformat/avformat.h>
}

/// The differences between FFmpeg's versions, from 5.1 (Debian 12) to 7.1 (Debian 13). For the .cpp files of this layer
/// only.
namespace FFmpegGenerations {

/// What a stream says about itself beside its codec's parameters; empty when it does not. Lives as long as the stream.
inline std::span<const std::uint8_t> sideData(const AVStream &stream, AVPacketSideDataType type)
{
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(60, 31, 102) // FFmpeg 6.1
    const AVCodecParameters &codec = *stream.codecpar;
    const AVPacketSideData *found = av_packet_side_data_get(codec.coded_side_data, codec.nb_coded_side_data, type);
    return found ? std::span<const std::uint8_t>(found->data, found->size) : std::span<const std::uint8_t>();
#else
    std::size_t size = 0;
    const std::uint8_t *bytes = av_stream_get_side_data(&stream, type, &size);
    return {bytes, bytes ? size : 0};
#endif
}

/// How long a frame is shown, in its stream's time base; 0 when it does not say.
inline std::int64_t durationOf(const AVFrame &frame)
{
#if LIBAVUTIL_VERSION_INT >= AV_VERSION_INT(57, 30, 100) // FFmpeg 6.0
    return frame.duration;
#else
    return frame.pkt_duration;
#endif
}

/// How many fields the codec counts for one frame.
inline int fieldsPerFrame(const AVCodecContext &decoder)
{
#if LIBAVCODEC_VERSION_INT >= AV_VERSION_INT(60, 12, 100) // FFmpeg 6.1
    const AVCodecDescriptor *descriptor = avcodec_descriptor_get(decoder.codec_id);
    return descriptor && (descriptor->props & AV_CODEC_PROP_FIELDS) != 0 ? 2 : 1;
#else
    return decoder.ticks_per_frame > 0 ? decoder.ticks_per_frame : 1;
#endif
}

/// What the source of a chain of filters is told of the frame's colours beside its format.
inline QByteArray colorsOfSource([[maybe_unused]] const AVFrame &frame)
{
#if LIBAVFILTER_VERSION_MAJOR >= 10 // FFmpeg 7.0
    return ":colorspace=" + QByteArray::number(frame.colorspace) + ":range=" + QByteArray::number(frame.color_range);
#else
    return {}; // read from each frame
#endif
}

/// Whether the tool forgets to add the container's start to the time sought, in transport and program streams of which
/// the video starts later: it takes the first frame that it can decode there. FFmpeg 6.0 to 7.1 at least.
inline constexpr bool toolForgetsStart = LIBAVFORMAT_VERSION_MAJOR >= 60;

} // namespace FFmpegGenerations
