#include "media/GifImage.h"

#include <QBuffer>
#include <QImageReader>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

int distance(QColor one, QColor other)
{
    return std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                     std::abs(one.blue() - other.blue()), std::abs(one.alpha() - other.alpha())});
}

TEST(GifImage, ReadsBackAsThePicture)
{
    QImage clear(10, 10, QImage::Format_ARGB32_Premultiplied);
    clear.fill(Qt::transparent);
    QImage wide(65'535, 1, QImage::Format_RGB32);
    wide.fill(Qt::blue);
    QImage gradient(301, 97, QImage::Format_RGB32); // far more colours than a GIF holds
    for (int at = 0; at < 301 * 97; ++at)
        gradient.setPixel(at % 301, at / 301, qRgb(at % 301 * 255 / 301, 0, at / 301 * 255 / 97));
    // How far a colour may be off after 2 x 2 pixels have been averaged.
    for (const auto &[picture, furthest] : {std::pair{clear, 0}, {wide, 0}, {gradient, 70}}) {
        SCOPED_TRACE(picture.width());
        QByteArray bytes = encodeGif(picture);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer, "gif");
        const QImage back = reader.read();
        ASSERT_EQ(back.size(), picture.size()) << reader.errorString().toStdString();
        EXPECT_EQ(reader.imageCount(), 1);
        const QSize half = (picture.size() / 2).expandedTo({1, 1});
        const QImage one = picture.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const QImage other = back.scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        for (int at = 0; at < half.width() * half.height(); ++at) {
            const QPoint point(at % half.width(), at / half.width());
            ASSERT_LE(distance(one.pixelColor(point), other.pixelColor(point)), furthest) << at;
        }
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
