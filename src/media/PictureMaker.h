#pragma once

#include "media/FFmpegHandles.h"
#include "media/Upright.h"
#include "platform/Result.h"

#include <QImage>
#include <QSize>

extern "C" {
#include <libswscale/swscale.h>
}

#include <memory>

/// Makes pictures of decoded frames, with the colours that they have on the way through the ffmpeg tool's JPEG. For the
/// .cpp files of this layer only; for one thread at a time.
class PictureMaker {
public:
    /// The size of upright pictures; the frame's own without it.
    void scaleTo(QSize size) { size_ = size; }
    /// The upright picture in Format_RGB32, turned as the frame says or else its stream. Throws std::bad_alloc.
    Result<QImage> make(const AVFrame &frame, const AVStream &stream);

private:
    QSize sizeBeforeTurning(const AVFrame &frame, const Upright &upright) const;
    bool prepare(const AVFrame &frame, QSize size);

    struct FreeScaler {
        void operator()(SwsContext *scaler) const { sws_freeContext(scaler); }
    };

    QSize size_;
    std::unique_ptr<SwsContext, FreeScaler> scaler_;
};
