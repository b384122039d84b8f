#include "render/ImageEncoder.h"

#include "media/GifImage.h"
#include "render/AllocatedImage.h"
#include "render/ImageFormats.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

namespace {

/// What a format without transparency would show as black is white.
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

bool writeGif(const QImage &image, QIODevice &device)
{
    const QByteArray bytes = encodeGif(image);
    return !bytes.isEmpty() && device.write(bytes) == bytes.size();
}

} // namespace

void GlobalFun::loadImageFormats()
{
    QBuffer nothing;
    nothing.open(QIODevice::WriteOnly);
    static_cast<void>(QImageWriter(&nothing, imageFormats.front().writer).canWrite()); // asks them in turn
}

bool GlobalFun::writeRepresentationOfType(const QImage &image, const QString &extension, QIODevice &device)
{
    if (image.isNull() || extension.isEmpty()) {
        return false;
    }
    if (extension == u"gif") { // which the toolkit reads only, and nobody can choose
        return writeGif(image, device);
    }
    const auto *const format = std::ranges::find_if(imageFormats, [&extension](const ImageFormat &each) {
        return each.extension == extension || each.alias == extension;
    });
    return format != imageFormats.end() &&
           QImageWriter(&device, format->writer).write(format->hasTransparency ? image : flattened(image));
}

QByteArray GlobalFun::dataRepresentationOfType(const QImage &image, const QString &extension)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    return writeRepresentationOfType(image, extension, bytes) ? bytes.data() : QByteArray();
}
