#include "render/ImageEncoder.h"

#include "media/GifImage.h"
#include "render/AllocatedImage.h"

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
    QImage ground = allocated(QImage(image.size(), QImage::Format_RGB32));
    ground.fill(Qt::white);
    QPainter(&ground).drawImage(0, 0, image);
    return ground;
}

bool write(const QImage &image, const char *format, QIODevice &device)
{
    return QImageWriter(&device, format).write(image);
}

bool writeJpeg(const QImage &image, QIODevice &device)
{
    return write(flattened(image), "jpeg", device);
}

bool writeBmp(const QImage &image, QIODevice &device)
{
    return write(flattened(image), "bmp", device);
}

bool writePng(const QImage &image, QIODevice &device)
{
    return write(image, "png", device);
}

bool writeTiff(const QImage &image, QIODevice &device)
{
    return write(image, "tiff", device);
}

bool writeGif(const QImage &image, QIODevice &device)
{
    const QByteArray bytes = encodeGif(image);
    return !bytes.isEmpty() && device.write(bytes) == bytes.size();
}

struct Encoder {
    QStringView extension;
    bool (*write)(const QImage &, QIODevice &);
};

constexpr std::array encoders{
    Encoder{u"tif", writeTiff}, Encoder{u"tiff", writeTiff}, Encoder{u"bmp", writeBmp}, Encoder{u"gif", writeGif},
    Encoder{u"jpg", writeJpeg}, Encoder{u"jpeg", writeJpeg}, Encoder{u"png", writePng},
};

} // namespace

bool GlobalFun::writeRepresentationOfType(const QImage &image, const QString &extension, QIODevice &device)
{
    const auto *const found = std::ranges::find(encoders, QStringView(extension), &Encoder::extension);
    return found != encoders.end() && !image.isNull() && found->write(image, device);
}

QByteArray GlobalFun::dataRepresentationOfType(const QImage &image, const QString &extension)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    return writeRepresentationOfType(image, extension, bytes) ? bytes.data() : QByteArray();
}
