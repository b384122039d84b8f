#include "render/ImageEncoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ImageEncoder, WritesTheTypeThatTheExtensionNames)
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(20, 0, 20, 30, Qt::yellow);
    const std::tuple<QString, QByteArray, QRgb> types[] = {{u"jpg"_s, "jpeg", ~0U},
                                                           {u"png"_s, "png", 0},
                                                           {u"bmp"_s, "bmp", ~0U},
                                                           {u"tiff"_s, "tiff", 0},
                                                           {u"gif"_s, "gif", 0}};
    for (const auto &[extension, format, transparent] : types) {
        QByteArray bytes = GlobalFun::dataRepresentationOfType(image, extension);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        EXPECT_EQ(reader.format(), format);
        const QImage read = reader.read();
        ASSERT_EQ(read.size(), image.size());
        EXPECT_EQ(read.pixel(5, 5), transparent) << format.constData();
        EXPECT_NEAR(qBlue(read.pixel(35, 25)), 0, 12)
            << format.constData(); // a JPEG's colours come back nearly the same
        EXPECT_NEAR(qRed(read.pixel(35, 25)), 255, 12) << format.constData();
    }
    for (const QString &extension : {u""_s, u"JPG"_s, u"mkv"_s}) {
        EXPECT_TRUE(GlobalFun::dataRepresentationOfType(image, extension).isEmpty());
    }
    EXPECT_TRUE(GlobalFun::dataRepresentationOfType(QImage(), u"png"_s).isEmpty());
}

TEST(ImageEncoder, GifsHaveTheirTransparentEdgesAndNoMorePixelsThanTheFormatHolds)
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QByteArray wholeFrame = QByteArray::fromHex("2c0000000028001e00"); // at 0, 0, of 40 by 30 pixels
    EXPECT_TRUE(GlobalFun::dataRepresentationOfType(image, u"gif"_s).contains(wholeFrame));
    // The last is within the sides' limits, but over the number of pixels that the encoder takes.
    for (const QSize size : {QSize(65'536, 1), QSize(1, 65'536), QSize(60'000, 6'000)}) {
        const QImage large(size, QImage::Format_Grayscale8);
        EXPECT_TRUE(GlobalFun::dataRepresentationOfType(large, u"gif"_s).isEmpty()) << size.width();
    }
}
