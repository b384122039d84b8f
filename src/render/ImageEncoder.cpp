#include "render/ImageEncoder.h"

#include "media/GifImage.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

/// JPEG and BMP hold no transparency and would show it as black.
QImage flattened(const QImage &image)
{
    if (!image.hasAlphaChannel()) {
        return image;
    }
    QImage ground(image.size(), QImage::Format_RGB32);
    ground.fill(Qt::white);
    QPainter(&ground).drawImage(0, 0, image);
    return ground;
}

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    return writer.write(image) ? bytes : QByteArray();
}

QByteArray encodeJpeg(const QImage &image)
{
    return encoded(flattened(image), "jpeg");
}

QByteArray encodeBmp(const QImage &image)
{
    return encoded(flattened(image), "bmp");
}

QByteArray encodePng(const QImage &image)
{
    return encoded(image, "png");
}

QByteArray encodeTiff(const QImage &image)
{
    return encoded(image, "tiff");
}

struct Encoder {
    QStringView extension;
    QByteArray (*encode)(const QImage &);
};

constexpr std::array encoders{
    Encoder{u"tif", encodeTiff}, Encoder{u"tiff", encodeTiff}, Encoder{u"bmp", encodeBmp}, Encoder{u"gif", encodeGif},
    Encoder{u"jpg", encodeJpeg}, Encoder{u"jpeg", encodeJpeg}, Encoder{u"png", encodePng},
};

} // namespace

QByteArray GlobalFun::dataRepresentationOfType(const QImage &image, const QString &extension)
{
    const auto *const found = std::ranges::find(encoders, QStringView(extension), &Encoder::extension);
    return found == encoders.end() || image.isNull() ? QByteArray() : found->encode(image);
}
