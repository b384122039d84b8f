#include "platform/files/PathText.h"

#include <gtest/gtest.h>

#include <array>

using namespace Qt::StringLiterals;

TEST(PathText, KeepsEverySequenceOfTheBytesAtWhichUtf8Decides)
{
    constexpr std::array edges{0x00, 0x2F, 0x7F, 0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC0,
                               0xC1, 0xC2, 0xDF, 0xE0, 0xED, 0xEF, 0xF0, 0xF4, 0xF5, 0xFF};
    const std::size_t count = edges.size() * edges.size() * edges.size() * edges.size();
    for (std::size_t n = 0; n < count; ++n) {
        QByteArray bytes;
        for (std::size_t rest = n, i = 0; i < 4; ++i, rest /= edges.size()) {
            bytes += static_cast<char>(edges.at(rest % edges.size()));
        }
        const QString text = PathText::fromBytes(bytes);
        ASSERT_EQ(PathText::toBytes(text), bytes) << bytes.toHex().constData();
        ASSERT_EQ(text.isValidUtf16(), QByteArrayView(bytes).isValidUtf8()) << bytes.toHex().constData();
    }
}

TEST(PathText, LeavesOrdinaryTextAloneAndShowsNoControlCharacters)
{
    for (const QString &text : {u""_s, u"Füße/映画/🎬.mkv"_s, u"\uFEFFbom"_s, u"\uFFFE\uFFFF"_s, u"%41\\n"_s}) {
        EXPECT_EQ(PathText::toBytes(text), text.toUtf8());
        EXPECT_EQ(PathText::fromBytes(text.toUtf8()), text);
    }
    const QString noEscape = QString(QChar(0xD800)) + u'a' + QChar(0xDC7F);
    EXPECT_EQ(PathText::toBytes(noEscape), u"\uFFFDa\uFFFD"_s.toUtf8());
    EXPECT_EQ(PathText::forDisplay(PathText::fromBytes("\xE2\x82\xC3\xC3\xA9")), u"\uFFFD\uFFFD\uFFFDé");
    EXPECT_EQ(PathText::forDisplay(u"a\nb\r\t\u0085\u2028\u2029\u007Fc 🎬\u200D"_s),
              u"a\uFFFDb\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDc 🎬\u200D"_s);
}
