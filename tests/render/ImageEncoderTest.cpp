#include "render/ImageEncoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

TEST(ImageEncoder, WritesTheTypeThatTheExtensionNames)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter(&image).fillRect(20, 0, 20, 30, Qt::yellow);
    for (const auto &[extension, format] : {std::pair{u"jpg", "jpeg"},
                                            {u"jpeg", "jpeg"},
                                            {u"png", "png"},
                                            {u"bmp", "bmp"},
                                            {u"tif", "tiff"},
                                            {u"tiff", "tiff"},
                                            {u"gif", "gif"}}) {
        QByteArray bytes = GlobalFun::dataRepresentationOfType(image, QString::fromUtf16(extension));
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        EXPECT_EQ(reader.format(), QByteArray(format));
        const QImage read = reader.read();
        ASSERT_EQ(read.size(), image.size()) << format;
        EXPECT_NEAR(qBlue(read.pixel(5, 5)), 255, 12) << format; // a JPEG's colours come back nearly the same
        EXPECT_NEAR(qRed(read.pixel(35, 25)), 255, 12) << format;
    }
    for (const char16_t *extension : {u"", u"JPG", u".jpg", u"webp", u"jpg "})
        EXPECT_TRUE(GlobalFun::dataRepresentationOfType(image, QString::fromUtf16(extension)).isEmpty());
    EXPECT_TRUE(GlobalFun::dataRepresentationOfType(QImage(), QStringLiteral("png")).isEmpty());
}

TEST(ImageEncoder, TransparencyIsKeptOrBecomesWhite)
{
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    for (const auto &[extension, pixel] : {std::pair{u"png", QRgb(0)},
                                           {u"tiff", QRgb(0)},
                                           {u"jpg", qRgb(255, 255, 255)},
                                           {u"bmp", qRgb(255, 255, 255)}}) {
        const QByteArray bytes = GlobalFun::dataRepresentationOfType(image, QString::fromUtf16(extension));
        EXPECT_EQ(QImage::fromData(bytes).pixel(5, 5), pixel) << bytes.left(4).constData();
    }
}

} // namespace
