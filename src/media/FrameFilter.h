#pragma once

#include "media/FFmpegHandles.h"
#include "platform/Result.h"

#include <QByteArray>

/// The frame after it has gone through a chain of FFmpeg's filters, written as for the tool's -vf, as if it were a
/// movie's only one. For the .cpp files of this layer only; safe on any thread. Loads libavfilter when first called.
/// Memory that runs out is std::bad_alloc.
Result<FFmpegHandles::Frame> filtered(const AVFrame &frame, const QByteArray &filters);
