#pragma once

#include "media/FFmpegHandles.h"

#include <span>

/// Decodes key frames, each by itself. For the .cpp files of this layer only; for one thread at a time.
class KeyDecoder {
public:
    KeyDecoder();

    /// The frame of these packets, until the next call; null when none comes of them.
    const AVFrame *decode(const AVStream &stream, std::span<const FFmpegHandles::Packet> key);

private:
    FFmpegHandles::CodecContext decoder_; ///< one for all: nothing of a key frame depends on another
    FFmpegHandles::Frame frame_;
};
