#include "media/GifImage.h"

#include <QBuffer>
#include <QImageReader>

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// Black at the left, running into red at the right and blue at the bottom: far more colours than a GIF holds.
QImage gradient(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, qRgb(x * 255 / width, 0, y * 255 / height));
    }
    return image;
}

struct Picture {
    QImage image;
    int furthestColor; ///< how far a colour may be off after 2 × 2 pixels have been averaged
};

int distanceAfterSmoothing(const QImage &one, const QImage &other)
{
    const QSize half(std::max(1, one.width() / 2), std::max(1, one.height() / 2));
    const QImage a = one.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage b = other.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    int furthest = 0;
    for (int y = 0; y < half.height(); ++y) {
        for (int x = 0; x < half.width(); ++x) {
            const QColor p = a.pixelColor(x, y);
            const QColor q = b.pixelColor(x, y);
            furthest = std::max({furthest, std::abs(p.red() - q.red()), std::abs(p.green() - q.green()),
                                 std::abs(p.blue() - q.blue()), std::abs(p.alpha() - q.alpha())});
        }
    }
    return furthest;
}

TEST(GifImage, ReadsBackAsThePicture)
{
    QImage clear(10, 10, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    QImage red(1, 1, QImage::Format_RGB32);
    red.fill(Qt::red);
    QImage wide(65'535, 1, QImage::Format_RGB32);
    wide.fill(Qt::blue);
    const Picture pictures[] = {{red, 0}, {clear, 0}, {wide, 0}, {gradient(301, 97), 70}};
    for (const Picture &picture : pictures) {
        SCOPED_TRACE(picture.image.width());
        QByteArray bytes = encodeGif(picture.image);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, "gif");
        const QImage back = reader.read();
        ASSERT_EQ(back.size(), picture.image.size()) << reader.errorString().toStdString();
        EXPECT_EQ(reader.imageCount(), 1);
        EXPECT_LE(distanceAfterSmoothing(back, picture.image), picture.furthestColor);
    }
}

TEST(GifImage, RefusesWhatTheFormatCannotHold)
{
    EXPECT_TRUE(encodeGif({}).isEmpty());
    EXPECT_TRUE(encodeGif(QImage(65'536, 1, QImage::Format_RGB32)).isEmpty());
    EXPECT_TRUE(encodeGif(QImage(1, 65'536, QImage::Format_RGB32)).isEmpty());
    // Within the sides' limits, but over the number of pixels that the encoder takes.
    EXPECT_TRUE(encodeGif(QImage(60'000, 6'000, QImage::Format_Grayscale8)).isEmpty());
}

} // namespace
