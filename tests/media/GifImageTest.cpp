#include "media/GifImage.h"

#include <gtest/gtest.h>

TEST(GifImage, WritesTransparentEdgesToo)
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QByteArray wholeFrame = QByteArray::fromHex("2c0000000028001e00"); // at 0, 0, of 40 by 30 pixels
    EXPECT_TRUE(encodeGif(image).contains(wholeFrame));
}

TEST(GifImage, RefusesWhatTheFormatCannotHold)
{
    // The last is within the sides' limits, but over the number of pixels that the encoder takes.
    for (const QSize size : {QSize(0, 0), QSize(65'536, 1), QSize(1, 65'536), QSize(60'000, 6'000)}) {
        EXPECT_TRUE(encodeGif(QImage(size, QImage::Format_Grayscale8)).isEmpty()) << size.width();
    }
}
