#pragma once

#include "media/FFmpegHandles.h"
#include "platform/Result.h"

/// A decoder for the stream's packets that has heard none yet, with so many threads; it refuses pictures that would
/// take more memory than there is. For the .cpp files of this layer only. Errors are in words for the user.
Result<FFmpegHandles::CodecContext> openDecoder(const AVStream &stream, int threads);
