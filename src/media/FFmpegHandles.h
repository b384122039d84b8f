#pragma once

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

/// Owners of FFmpeg's C structures. For the .cpp files of this layer only: nobody else sees an FFmpeg header.
namespace FFmpegHandles {

struct CloseInput {
    void operator()(AVFormatContext *context) const { avformat_close_input(&context); }
};
struct FreeOutput {
    void operator()(AVFormatContext *context) const { avformat_free_context(context); }
};
struct FreeCodec {
    void operator()(AVCodecContext *context) const { avcodec_free_context(&context); }
};
struct FreeFrame {
    void operator()(AVFrame *frame) const { av_frame_free(&frame); }
};
struct FreePacket {
    void operator()(AVPacket *packet) const { av_packet_free(&packet); }
};

using InputContext = std::unique_ptr<AVFormatContext, CloseInput>;
using OutputContext = std::unique_ptr<AVFormatContext, FreeOutput>;
using CodecContext = std::unique_ptr<AVCodecContext, FreeCodec>;
using Frame = std::unique_ptr<AVFrame, FreeFrame>;
using Packet = std::unique_ptr<AVPacket, FreePacket>;

/// A dictionary of options, handed to FFmpeg by the address of `entries`.
struct Options {
    AVDictionary *entries = nullptr;

    Options() = default;
    ~Options() { av_dict_free(&entries); }
    Options(const Options &) = delete;
    Options &operator=(const Options &) = delete;

    void set(const char *name, const char *value) { av_dict_set(&entries, name, value, 0); }
};

} // namespace FFmpegHandles
