#include "render/TextBlock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static QSizeF measured(const QString &text, QSizeF box = {500.0, 500.0})
{
    return TextBlock(text, TextBlock::systemFont(), box).size();
}

TEST(TextBlock, MeasuresTheLinesThatFitTheBox)
{
    const double line = measured(u"a"_s).height();
    EXPECT_GE(line, 12.0);
    const std::tuple<QString, QSizeF, double> cases[] = {
        {QString(), {500, 500}, 0},           {u"a\n\nb\n"_s, {500, 500}, 3},
        {u"some words here"_s, {70, 500}, 2}, {QString(20, u'w'), {100, 500}, 2}, // within a word too
        {u"a\nb\nc"_s, {500, 2.5 * line}, 2}, {u"a"_s, {-5, 100}, 0},
        {u"a"_s, {qQNaN(), 100}, 0},          {u"a"_s, {1e300, 1e300}, 1},
    };
    for (const auto &[text, box, lines] : cases) {
        EXPECT_EQ(measured(text, box).height(), lines * line) << text.toStdString();
    }
}
