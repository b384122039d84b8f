#include "render/TextBlock.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace {

QSizeF measured(const QString &text, QSizeF box)
{
    return TextBlock(text, TextBlock::systemFont(), box).size();
}

TEST(TextBlock, ATrailingNewlineAddsNoLine)
{
    const QSizeF box(500.0, 500.0);
    const double line = measured(QStringLiteral("a"), box).height();
    EXPECT_GE(line, 12.0);
    EXPECT_EQ(measured(QString(), box), QSizeF(0.0, 0.0));
    EXPECT_EQ(measured(QStringLiteral("a\n"), box).height(), line);
    EXPECT_EQ(measured(QStringLiteral("a\nb"), box).height(), 2.0 * line);
    EXPECT_EQ(measured(QStringLiteral("a\n\nb\n"), box).height(), 3.0 * line);
}

TEST(TextBlock, WrapsAtWordsAndInsideWordsThatAreTooLong)
{
    const double line = measured(QStringLiteral("a"), {500.0, 500.0}).height();
    const QSizeF words = measured(QStringLiteral("some words here"), {70.0, 500.0});
    EXPECT_EQ(words.height(), 2.0 * line);
    EXPECT_LE(words.width(), 70.0);
    const QSizeF longWord = measured(QString(60, u'w'), {100.0, 500.0});
    EXPECT_GT(longWord.height(), 2.0 * line);
    EXPECT_LE(longWord.width(), 100.0);
}

TEST(TextBlock, KeepsOnlyTheLinesThatFitTheBox)
{
    const double line = measured(QStringLiteral("a"), {500.0, 500.0}).height();
    EXPECT_EQ(measured(QStringLiteral("a\nb\nc"), {500.0, 2.5 * line}).height(), 2.0 * line);
    for (const QSizeF box : {QSizeF(0.0, 100.0), QSizeF(-5.0, 100.0), QSizeF(100.0, -5.0), QSizeF(qQNaN(), 100.0)}) {
        EXPECT_EQ(measured(QStringLiteral("a"), box), QSizeF(0.0, 0.0));
    }
    EXPECT_EQ(measured(QStringLiteral("a"), {1e300, 1e300}).height(), line);
}

TEST(TextBlock, DrawsWithinWhatItMeasured)
{
    const TextBlock block(QStringLiteral("File Name: wide movie name.mkv\nDuration: 00:00:12\n"),
                          TextBlock::systemFont(), {120.0, 200.0});
    QImage image(300, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    block.draw(painter, {50.0, 60.0});
    painter.end();

    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != qRgb(255, 255, 255)) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    const QRect room(QPoint(50, 60), block.size().toSize());
    EXPECT_TRUE(room.adjusted(-1, 0, 1, 0).contains(ink)); // a glyph may lean over its own width
    EXPECT_GT(ink.width(), room.width() - 12);
    EXPECT_GT(ink.height(), room.height() - 12);
}

} // namespace
