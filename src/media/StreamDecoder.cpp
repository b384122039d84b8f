#include "media/StreamDecoder.h"

#include <cstdint>

using namespace Qt::StringLiterals;

using namespace FFmpegHandles;

namespace {

/// The largest picture: 16K, 15,360 × 8,640. A file of some bytes can demand more memory than there is.
constexpr std::int64_t mostPixels = std::int64_t{1} << 27;

} // namespace

Result<CodecContext> openDecoder(const AVStream &stream, int threads)
{
    const AVCodec *codec = avcodec_find_decoder(stream.codecpar->codec_id);
    CodecContext decoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!decoder || avcodec_parameters_to_context(decoder.get(), stream.codecpar) < 0) {
        return failure(u"has pictures that cannot be decoded"_s);
    }
    decoder->pkt_timebase = stream.time_base;
    decoder->framerate = stream.avg_frame_rate;
    decoder->thread_count = threads;
    decoder->max_pixels = mostPixels;
    if (avcodec_open2(decoder.get(), codec, nullptr) < 0) {
        return failure(u"has pictures that cannot be decoded"_s);
    }
    return decoder;
}
