#include "render/ImageEncoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ImageEncoder, WritesTheTypeThatTheExtensionNames)
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter(&image).fillRect(20, 0, 20, 30, Qt::yellow);
    const std::pair<QString, QByteArray> types[] = {
        {u"jpg"_s, "jpeg"}, {u"png"_s, "png"}, {u"bmp"_s, "bmp"}, {u"tiff"_s, "tiff"}, {u"gif"_s, "gif"}};
    for (const auto &[extension, format] : types) {
        QByteArray bytes = GlobalFun::dataRepresentationOfType(image, extension);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        EXPECT_EQ(reader.format(), format);
        const QImage read = reader.read();
        ASSERT_EQ(read.size(), image.size());
        EXPECT_NEAR(qBlue(read.pixel(5, 5)), 255, 12); // a JPEG's colours come back nearly the same
        EXPECT_NEAR(qRed(read.pixel(35, 25)), 255, 12);
    }
    for (const QString &extension : {u""_s, u"JPG"_s, u"webp"_s}) {
        EXPECT_TRUE(GlobalFun::dataRepresentationOfType(image, extension).isEmpty());
    }
    EXPECT_TRUE(GlobalFun::dataRepresentationOfType(QImage(), u"png"_s).isEmpty());
}

TEST(ImageEncoder, TransparencyIsKeptOrBecomesWhite)
{
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const std::pair<QString, QRgb> pixels[] = {
        {u"png"_s, 0}, {u"tiff"_s, 0}, {u"gif"_s, 0}, {u"jpg"_s, ~0U}, {u"bmp"_s, ~0U}};
    for (const auto &[extension, pixel] : pixels) {
        const QByteArray bytes = GlobalFun::dataRepresentationOfType(image, extension);
        EXPECT_EQ(QImage::fromData(bytes).pixel(5, 5), pixel);
    }
}
