#include "render/ImageEncoder.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

#include <gtest/gtest.h>

TEST(ImageEncoder, WritesTheNamedTypeAndKeepsTransparencyOrMakesItWhite)
{
    QImage image(40, 30, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter(&image).fillRect(20, 0, 20, 30, Qt::yellow);
    const std::tuple<QString, QByteArray, QRgb> types[] = {{u"jpg"_qs, "jpeg", ~0U},
                                                           {u"png"_qs, "png", 0},
                                                           {u"bmp"_qs, "bmp", ~0U},
                                                           {u"tiff"_qs, "tiff", 0},
                                                           {u"gif"_qs, "gif", 0}};
    for (const auto &[extension, format, ground] : types) {
        QByteArray bytes = GlobalFun::dataRepresentationOfType(image, extension);
        QBuffer buffer(&bytes);
        QImageReader reader(&buffer);
        EXPECT_EQ(reader.format(), format);
        const QImage read = reader.read();
        ASSERT_EQ(read.size(), image.size());
        EXPECT_EQ(read.pixel(5, 5), ground) << format.constData();
        const QRgb yellow = read.pixel(35, 25);
        EXPECT_NEAR(qRed(yellow) - qBlue(yellow), 255, 12); // a JPEG's colours come back nearly the same
    }
    for (const QString &extension : {u""_qs, u"JPG"_qs, u"webp"_qs})
        EXPECT_TRUE(GlobalFun::dataRepresentationOfType(image, extension).isEmpty());
    EXPECT_TRUE(GlobalFun::dataRepresentationOfType(QImage(), QStringLiteral("png")).isEmpty());
}
