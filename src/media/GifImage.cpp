#include "media/GifImage.h"

#include "media/FFmpegHandles.h"
#include "media/VXMediaInfo.h"

#include <algorithm>
#include <cstring>

using namespace FFmpegHandles;

namespace {

/// A file that FFmpeg writes in memory.
class MemoryFile {
public:
    MemoryFile()
    {
        if (avio_open_dyn_buf(&io_) < 0) {
            io_ = nullptr;
        }
    }
    ~MemoryFile() { close(); }
    MemoryFile(const MemoryFile &) = delete;
    MemoryFile &operator=(const MemoryFile &) = delete;

    AVIOContext *get() const { return io_; }

    /// Ends the file and gives its bytes; none when writing them failed.
    QByteArray close()
    {
        if (!io_) {
            return {};
        }
        const bool failed = io_->error < 0;
        std::uint8_t *bytes = nullptr;
        const int size = avio_close_dyn_buf(std::exchange(io_, nullptr), &bytes);
        const std::unique_ptr<std::uint8_t, decltype(&av_free)> owner(bytes, &av_free);
        return failed ? QByteArray() : QByteArray(reinterpret_cast<const char *>(bytes), size);
    }

private:
    AVIOContext *io_ = nullptr;
};

CodecContext openEncoder(int width, int height)
{
    const AVCodec *codec = avcodec_find_encoder(AV_CODEC_ID_GIF);
    CodecContext encoder(codec ? avcodec_alloc_context3(codec) : nullptr);
    if (!encoder) {
        return nullptr;
    }
    encoder->width = width;
    encoder->height = height;
    encoder->pix_fmt = AV_PIX_FMT_PAL8;
    encoder->time_base = {1, 100};
    // Otherwise the encoder leaves out transparent edges, and Qt's reader fills those with uninitialised memory.
    Options options;
    options.set("gifflags", "-offsetting");
    if (avcodec_open2(encoder.get(), codec, &options.entries) < 0) {
        return nullptr;
    }
    return encoder;
}

Frame palettedFrame(const QImage &indexed)
{
    Frame frame(av_frame_alloc());
    if (!frame) {
        return nullptr;
    }
    frame->format = AV_PIX_FMT_PAL8;
    frame->width = indexed.width();
    frame->height = indexed.height();
    if (av_frame_get_buffer(frame.get(), 0) < 0) {
        return nullptr;
    }
    for (int y = 0; y < indexed.height(); ++y) {
        std::memcpy(frame->data[0] + std::ptrdiff_t{y} * frame->linesize[0], indexed.constScanLine(y),
                    static_cast<std::size_t>(indexed.width()));
    }
    // Opaque behind the colours in use, because the encoder takes an entry with alpha 0 for transparency.
    QList<QRgb> palette = indexed.colorTable();
    palette.resize(256, qRgb(0, 0, 0));
    std::memcpy(frame->data[1], palette.constData(), AVPALETTE_SIZE);
    return frame;
}

Packet encode(AVCodecContext &encoder, const AVFrame &frame)
{
    Packet packet(av_packet_alloc());
    if (!packet || avcodec_send_frame(&encoder, &frame) < 0 || avcodec_send_frame(&encoder, nullptr) < 0 ||
        avcodec_receive_packet(&encoder, packet.get()) < 0) {
        return nullptr;
    }
    return packet;
}

QByteArray mux(const AVCodecContext &encoder, AVPacket &packet)
{
    AVFormatContext *raw = nullptr;
    if (avformat_alloc_output_context2(&raw, nullptr, "gif", nullptr) < 0) {
        return {};
    }
    const OutputContext muxer(raw);
    MemoryFile file;
    muxer->pb = file.get();
    AVStream *stream = avformat_new_stream(muxer.get(), nullptr);
    Options options;
    options.set("loop", "-1"); // a picture, not an animation
    if (!muxer->pb || !stream || avcodec_parameters_from_context(stream->codecpar, &encoder) < 0 ||
        avformat_write_header(muxer.get(), &options.entries) < 0 || av_write_frame(muxer.get(), &packet) < 0 ||
        av_write_trailer(muxer.get()) < 0) {
        return {};
    }
    return file.close();
}

} // namespace

QByteArray encodeGif(const QImage &image)
{
    static constexpr int longestSide = 0xFFFF; // what the format's 16-bit fields hold
    if (image.isNull() || std::max(image.width(), image.height()) > longestSide) {
        return {};
    }
    FFMpegInit();

    const CodecContext encoder = openEncoder(image.width(), image.height());
    const QImage indexed = encoder ? image.convertToFormat(QImage::Format_Indexed8) : QImage();
    const Frame frame = indexed.isNull() ? nullptr : palettedFrame(indexed);
    const Packet packet = frame ? encode(*encoder, *frame) : nullptr;
    return packet ? mux(*encoder, *packet) : QByteArray();
}
