#include "media/PictureMaker.h"

#include "media/FFmpegGenerations.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <array>
#include <new>

using namespace Qt::StringLiterals;

namespace {

/// libswscale writes whole vectors, past the end of a line and of the last one too.
constexpr std::int64_t lineAlignment = 64; // bytes

/// A picture whose memory leaves room for that.
QImage roomyImage(QSize size)
{
    const std::int64_t line = (std::int64_t{size.width()} * 4 + 2 * lineAlignment - 1) / lineAlignment * lineAlignment;
    auto *bytes = static_cast<uchar *>(av_malloc(static_cast<std::size_t>(line * size.height() + lineAlignment)));
    if (!bytes) {
        throw std::bad_alloc();
    }
    QImage image(bytes, size.width(), size.height(), line, QImage::Format_RGB32, &av_free, bytes);
    if (image.isNull()) {
        av_free(bytes);
        throw std::bad_alloc();
    }
    return image;
}

/// The same format without its alpha plane: the tool's JPEG shows the colours beneath it.
AVPixelFormat opaque(AVPixelFormat format)
{
    const AVPixFmtDescriptor *described = av_pix_fmt_desc_get(format);
    const bool isPlanarAlpha = described && (described->flags & AV_PIX_FMT_FLAG_ALPHA) != 0 &&
                               (described->flags & AV_PIX_FMT_FLAG_PLANAR) != 0;
    if (!isPlanarAlpha) {
        return format;
    }
    QByteArray name(described->name);
    return av_get_pix_fmt(name.replace("yuva", "yuv").replace("gbrap", "gbrp").constData());
}

Upright uprightOf(const AVFrame &frame, const AVStream &stream)
{
    if (const AVFrameSideData *own = av_frame_get_side_data(&frame, AV_FRAME_DATA_DISPLAYMATRIX)) {
        return Upright::of({own->data, own->size});
    }
    return Upright::of(FFmpegGenerations::sideData(stream, AV_PKT_DATA_DISPLAYMATRIX));
}

} // namespace

QSize PictureMaker::sizeBeforeTurning(const AVFrame &frame, const Upright &upright) const
{
    const bool isOddAngle = upright.degrees != 0.0 && !upright.swapsSides();
    if (size_.isEmpty() || isOddAngle) {
        return {frame.width, frame.height};
    }
    return upright.swapsSides() ? size_.transposed() : size_;
}

bool PictureMaker::prepare(const AVFrame &frame, QSize size)
{
    // As the painter's own scaling does it: the mean of the pixels that become one, or in between them.
    const bool shrinks = size.width() < frame.width || size.height() < frame.height;
    const int quality = (shrinks ? SWS_AREA : SWS_BILINEAR) | SWS_FULL_CHR_H_INT | SWS_ACCURATE_RND;
    const auto format = opaque(static_cast<AVPixelFormat>(frame.format));
    scaler_.reset(sws_getCachedContext(scaler_.release(), frame.width, frame.height, format, size.width(),
                                       size.height(), AV_PIX_FMT_BGR0, quality, nullptr, nullptr, nullptr));
    if (!scaler_) {
        return false;
    }
    int *from = nullptr;
    int *to = nullptr;
    int isFull = 0;
    int isResultFull = 0;
    int brightness = 0;
    int contrast = 0;
    int saturation = 0;
    sws_getColorspaceDetails(scaler_.get(), &from, &isFull, &to, &isResultFull, &brightness, &contrast, &saturation);
    if (frame.color_range != AVCOL_RANGE_UNSPECIFIED) {
        isFull = frame.color_range == AVCOL_RANGE_JPEG ? 1 : 0;
    }
    // The tool stretches the range of YUV to the full one and keeps its matrix, and a JPEG's reader takes any for that
    // of BT.601.
    const int *jpeg = sws_getCoefficients(SWS_CS_ITU601);
    sws_setColorspaceDetails(scaler_.get(), jpeg, isFull, jpeg, 1, brightness, contrast, saturation);
    return true;
}

Result<QImage> PictureMaker::make(const AVFrame &frame, const AVStream &stream)
{
    const Upright upright = uprightOf(frame, stream);
    const QSize size = sizeBeforeTurning(frame, upright);
    if (!prepare(frame, size)) {
        return failure(u"has pictures of an unknown kind"_s);
    }
    QImage image = roomyImage(size);
    const std::array<std::uint8_t *, 4> planes = {image.bits()};
    const std::array<int, 4> lines = {static_cast<int>(image.bytesPerLine())};
    sws_scale(scaler_.get(), frame.data, frame.linesize, 0, frame.height, planes.data(), lines.data());
    image = upright.apply(image);
    return size_.isEmpty() || image.size() == size_
               ? image
               : image.scaled(size_, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}
