#include "media/FrameDecoder.h"

#include "support/Difference.h"
#include "support/ScratchFolder.h"

#include <QDir>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <vector>

using namespace Qt::StringLiterals;

static const QString kinds = QStringLiteral(TESSARINE_TEST_MOVIES "/kinds/");
static const CancelFlag never{false};

static FrameDecoder opened(const QString &path, int threads = 1)
{
    auto decoder = FrameDecoder::open(path, never);
    EXPECT_TRUE(decoder) << path.toStdString() << ' ' << decoder.error().toStdString();
    decoder->useThreads(threads);
    return std::move(decoder).value();
}

TEST(FrameDecoder, GivesTheToolsPictures)
{
    const QStringList movies = QDir(kinds).entryList({u"*.???"_s, u"*.??"_s, u"*.????"_s}, QDir::Files);
    int compared = 0;
    for (const QString &movie : movies.filter(QRegularExpression(u"^[^.]+[.][^.]+$"_s))) {
        FrameDecoder decoder = opened(kinds + movie);
        FrameDecoder small = opened(kinds + movie, 2);
        FrameDecoder others = opened(kinds + movie);
        for (const char *time : {"0.05", "1.40", "2.13", "2.95", "3.30"}) {
            SCOPED_TRACE(movie.toStdString() + " at " + time);
            const QImage expected(kinds + movie + u'.' + QLatin1StringView(time) + u".jpg");
            const auto picture = decoder.exactFrame(std::atof(time));
            ASSERT_TRUE(picture) << picture.error().toStdString();
            ASSERT_EQ(picture->isNull(), expected.isNull());
            if (expected.isNull()) {
                continue;
            }
            EXPECT_EQ(picture->format(), QImage::Format_RGB32);
            const double loss = difference(*picture, expected);
            EXPECT_LT(loss, 6.0);
            for (const double step : {-0.04, 0.04}) {
                const QImage neighbour = others.exactFrame(std::atof(time) + step).value();
                EXPECT_TRUE(neighbour.isNull() || neighbour == *picture || difference(neighbour, expected) > loss);
            }
            small.scaleTo(expected.size() / 2);
            EXPECT_LT(difference(small.exactFrame(std::atof(time)).value(),
                                 expected.scaled(expected.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)),
                      6.0);
            ++compared;
        }
    }
    EXPECT_GT(compared, 90);
}

TEST(FrameDecoder, FindsKeyFramesWithOrWithoutAnIndex)
{
    for (const char *movie : {"b.mp4", "b.mkv", "b.ts", "sound.mp4", "late.mkv", "no-index.mkv", "hevc.mkv", "vp9.webm",
                              "ten-bit.mkv", "turned.mp4", "fields.mpg", "fields.ts"}) {
        SCOPED_TRACE(movie);
        FrameDecoder decoder = opened(kinds + QLatin1StringView(movie));
        std::vector<QImage> frames(75);
        std::ranges::generate(frames, [&decoder, n = 0]() mutable { return decoder.exactFrame(n++ * 0.04).value(); });
        for (const int asked : {60, 8, 36}) {
            const QImage key = decoder.keyFrame(asked * 0.04).value();
            const auto behind = frames.begin() + asked + 1;
            const auto found = std::find(std::make_reverse_iterator(behind), frames.rend(), key);
            ASSERT_NE(found, frames.rend());
            EXPECT_LT(std::distance(found.base(), behind), 30); // program streams begin to decode later
        }
    }
    EXPECT_NEAR(opened(kinds + u"b.mkv").keyTimeBefore(1.5).value_or(-1.0), 0.96, 0.001);
    EXPECT_FALSE(opened(kinds + u"b.ts").keyTimeBefore(1.5));
}

TEST(FrameDecoder, StopsAtWhatIsNoPicture)
{
    const ScratchFolder folder;
    const QByteArray huge = "YUV4MPEG2 W32767 H32767 F25:1 C420\nFRAME\n";
    const auto raw = FrameDecoder::open(folder.write("huge.y4m", huge), never);
    EXPECT_FALSE(raw);
    FrameDecoder decoder = opened(kinds + u"b.mp4");
    for (const double time : {1e300, 1e9, std::nan("")}) {
        EXPECT_TRUE(decoder.exactFrame(time).value().isNull());
    }
    EXPECT_FALSE(decoder.exactFrame(-1e9).value().isNull());
    EXPECT_FALSE(FrameDecoder::open(kinds, never));
    decoder.filterBy("nonsense");
    EXPECT_TRUE(decoder.keyFrame(1.0).error().contains(u"nonsense"));

    CancelFlag cancelled{false};
    auto stopped = FrameDecoder::open(kinds + u"b.mp4", cancelled).value();
    cancelled = true;
    EXPECT_FALSE(stopped.exactFrame(1.0));
    EXPECT_FALSE(stopped.keyFrame(1.0));
    EXPECT_FALSE(FrameDecoder::open(kinds + u"b.mp4", cancelled));
}
