#include "media/KeyDecoder.h"

#include "media/StreamDecoder.h"

#include <new>

using namespace FFmpegHandles;

KeyDecoder::KeyDecoder() : frame_(av_frame_alloc())
{
    if (!frame_) {
        throw std::bad_alloc();
    }
}

const AVFrame *KeyDecoder::decode(const AVStream &stream, std::span<const Packet> key)
{
    if (key.empty()) {
        return nullptr;
    }
    if (decoder_) {
        avcodec_flush_buffers(decoder_.get());
    } else {
        auto opened = openDecoder(stream, 1);
        if (!opened) {
            return nullptr;
        }
        decoder_ = *std::move(opened);
    }
    for (const Packet &packet : key) {
        avcodec_send_packet(decoder_.get(), packet.get());
    }
    avcodec_send_packet(decoder_.get(), nullptr);
    return avcodec_receive_frame(decoder_.get(), frame_.get()) >= 0 ? frame_.get() : nullptr;
}
