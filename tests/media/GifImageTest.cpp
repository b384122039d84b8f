#include "media/GifImage.h"

#include <gtest/gtest.h>

TEST(GifImage, RefusesWhatTheFormatCannotHold)
{
    // The last is within the sides' limits, but over the number of pixels that the encoder takes.
    for (const QSize size : {QSize(0, 0), QSize(65'536, 1), QSize(1, 65'536), QSize(60'000, 6'000)}) {
        EXPECT_TRUE(encodeGif(QImage(size, QImage::Format_Grayscale8)).isEmpty()) << size.width();
    }
}
