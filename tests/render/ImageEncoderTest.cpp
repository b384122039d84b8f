#include "render/ImageEncoder.h"

#include <QBuffer>
#include <QImageReader>

#include <gtest/gtest.h>

namespace {

QImage twoColours()
{
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    for (int y = 0; y < 30; ++y) {
        for (int x = 20; x < 40; ++x) {
            image.setPixelColor(x, y, Qt::yellow);
        }
    }
    return image;
}

int distance(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

TEST(ImageEncoder, WritesTheTypeThatTheExtensionNames)
{
    struct Case {
        const char *extension;
        const char *format;
        int tolerance; // of the lossy ones
    };
    for (const Case &type :
         {Case{"jpg", "jpeg", 30}, Case{"jpeg", "jpeg", 30}, Case{"png", "png", 0}, Case{"bmp", "bmp", 0},
          Case{"tif", "tiff", 0}, Case{"tiff", "tiff", 0}, Case{"gif", "gif", 0}}) {
        QByteArray bytes = GlobalFun::dataRepresentationOfType(twoColours(), QString::fromLatin1(type.extension));
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        EXPECT_EQ(reader.format(), QByteArray(type.format)) << type.extension;
        const QImage image = reader.read();
        ASSERT_EQ(image.size(), QSize(40, 30)) << type.extension;
        EXPECT_LE(distance(image.pixel(5, 5), qRgb(0, 0, 255)), type.tolerance) << type.extension;
        EXPECT_LE(distance(image.pixel(35, 25), qRgb(255, 255, 0)), type.tolerance) << type.extension;
    }
}

TEST(ImageEncoder, GivesNothingForOtherExtensionsAndNoImage)
{
    for (const char *extension : {"", "JPG", "Png", ".jpg", "webp", "jpg "}) {
        EXPECT_TRUE(GlobalFun::dataRepresentationOfType(twoColours(), QString::fromLatin1(extension)).isEmpty())
            << extension;
    }
    EXPECT_TRUE(GlobalFun::dataRepresentationOfType(QImage(), QStringLiteral("png")).isEmpty());
}

TEST(ImageEncoder, TransparencyIsKeptOrBecomesWhite)
{
    QImage image(10, 10, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const auto reread = [&image](const QString &extension) {
        return QImage::fromData(GlobalFun::dataRepresentationOfType(image, extension)).pixel(5, 5);
    };
    EXPECT_EQ(qAlpha(reread(QStringLiteral("png"))), 0);
    EXPECT_EQ(qAlpha(reread(QStringLiteral("tiff"))), 0);
    EXPECT_EQ(reread(QStringLiteral("jpg")), qRgb(255, 255, 255));
    EXPECT_EQ(reread(QStringLiteral("bmp")), qRgb(255, 255, 255));
}

} // namespace
