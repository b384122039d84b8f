#include "render/TextBlock.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

static QSizeF measured(const QString &text, QSizeF box = {500.0, 500.0})
{
    return TextBlock(text, TextBlock::systemFont(), box).size();
}

TEST(TextBlock, MeasuresTheLinesThatFitTheBox)
{
    const double line = measured(QStringLiteral("a")).height();
    EXPECT_GE(line, 12.0);
    const std::tuple<QString, QSizeF, double> cases[] = {
        {QString(), {500, 500}, 0},
        {u"a\n\nb\n"_qs, {500, 500}, 3},
        {u"some words here"_qs, {70, 500}, 2},
        {QString(20, u'w'), {100, 500}, 2}, // within a word too
        {u"a\nb\nc"_qs, {500, 2.5 * line}, 2},
        {u"a"_qs, {-5, 100}, 0},
        {u"a"_qs, {qQNaN(), 100}, 0},
        {u"a"_qs, {1e300, 1e300}, 1},
    };
    for (const auto &[text, box, lines] : cases)
        EXPECT_EQ(measured(text, box).height(), lines * line) << text.toStdString();
}

TEST(TextBlock, DrawsWithinWhatItMeasured)
{
    const TextBlock block(u"File Name: wide movie name.mkv\nDuration: 00:00:12\n"_qs, TextBlock::systemFont(),
                          {120, 200});
    QImage image(300, 300, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    block.draw(painter, {50.0, 60.0});
    painter.end();
    QRect ink;
    for (int at = 0; at < 300 * 300; ++at)
        ink |= image.pixel(at % 300, at / 300) == ~0U ? QRect() : QRect(at % 300, at / 300, 1, 1);
    const QRect room(QPoint(50, 60), block.size().toSize());
    EXPECT_TRUE(room.adjusted(-1, 0, 1, 0).contains(ink)); // a glyph may lean over its own width
    EXPECT_TRUE(ink.contains(room.adjusted(6, 6, -6, -6)));
}
