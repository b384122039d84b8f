// What the options for pictures make of them, from every source of frames.

#include "Shared/FrameGrabber.h"
#include "media/BlankPicture.h"
#include "media/VXMediaInfo.h"
#include "render/ChosenFrames.h"
#include "support/Difference.h"
#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

static const QString movies = QStringLiteral(TESSARINE_TEST_MOVIES "/");
static const CancelFlag never{false};

struct PicturesTest : testing::TestWithParam<FrameSource> {
    QImage picture(const QString &movie, PictureOptions options, double seconds = 1.0)
    {
        VXMediaInfoItem item;
        std::optional<MediaError> error;
        item.filePath = movies + movie;
        VXMediaInfo::dumpMediaInfo(item, error, never);
        options.source = GetParam();
        const GrabbedFrame frame = ChosenFrames::at(seconds, grabber, item, options, never);
        EXPECT_TRUE(frame.isNew) << movie.toStdString() << ' ' << frame.problem.toStdString();
        return frame.picture;
    }

    const ScratchFolder folder;
    FrameGrabber grabber{QStringLiteral(TESSARINE_FFMPEG), folder.path()};
};
INSTANTIATE_TEST_SUITE_P(Sources, PicturesTest,
                         testing::Values(FrameSource::Tool, FrameSource::Exact, FrameSource::Key));

using Rgb = std::array<double, 3>;

/// Candela per square metre of a signal from 0 to 1, as the standards say.
static double lightOfPq(double signal)
{
    const double power = std::pow(std::max(signal, 0.0), 1.0 / 78.84375);
    return 10000.0 * std::pow(std::max(power - 0.8359375, 0.0) / (18.8515625 - 18.6875 * power), 1.0 / 0.1593017578125);
}

static double lightOfHlg(double signal)
{
    const double s = std::max(signal, 0.0);
    const double scene = s <= 0.5 ? s * s / 3.0 : (std::exp((s - 0.55991073) / 0.17883277) + 0.28466892) / 12.0;
    return 1000.0 * std::pow(scene, 1.2);
}

/// What a screen is to show of a limited 10-bit code of BT.2020: white paper of 203 cd/m² and all below it nearly as it
/// is, 1000 cd/m² and above as white.
static Rgb shown(double luma, double cb, double cr, double (*lightOf)(double))
{
    const double y = (luma - 64.0) / 876.0;
    const double r = y + 1.4746 * (cr - 512.0) / 896.0;
    const double b = y + 1.8814 * (cb - 512.0) / 896.0;
    const double g = (y - 0.2627 * r - 0.0593 * b) / 0.678;
    const Rgb wide{lightOf(r) / 203.0, lightOf(g) / 203.0, lightOf(b) / 203.0};
    constexpr std::array<Rgb, 3> narrower{
        {{1.660491, -0.587641, -0.072850}, {-0.124550, 1.132900, -0.008349}, {-0.018151, -0.100579, 1.118730}}};
    Rgb light{};
    std::ranges::transform(narrower, light.begin(), [&wide](const Rgb &row) {
        return std::max(row[0] * wide[0] + row[1] * wide[1] + row[2] * wide[2], 0.0);
    });
    const double brightest = std::max(std::ranges::max(light), 1e-6);
    constexpr double bend = 0.3; // from here on the curve is a hyperbola, smooth, that reaches 1 at the peak
    constexpr double peak = 1000.0 / 203.0;
    const double a = -bend * bend * (peak - 1.0) / (bend * bend - 2.0 * bend + peak);
    const double c = (bend * bend - 2.0 * bend * peak + peak) / (peak - 1.0);
    const double curved = brightest <= bend
                              ? brightest
                              : (c * c + 2.0 * c * bend + bend * bend) / (c - a) * (brightest + a) / (brightest + c);
    for (double &one : light) {
        one = 255.0 * std::pow(std::min(one * curved / brightest, 1.0), 1.0 / 2.4);
    }
    return light;
}

TEST_P(PicturesTest, BrightMoviesAreShownAsTheStandardsSayAndOthersAreLeftAlone)
{
    for (const auto &[movie, lightOf] :
         {std::pair{u"pictures/pq.mkv"_s, &lightOfPq}, {u"pictures/hlg.mkv"_s, &lightOfHlg}}) {
        const QImage mapped = picture(movie, {.toneMap = true});
        ASSERT_EQ(mapped.size(), QSize(160, 120));
        for (int patch = 0; patch < 8; ++patch) {
            const bool isGrey = patch < 4;
            const QColor color = mapped.pixelColor(40 * (patch % 4) + 20, isGrey ? 30 : 90);
            const Rgb expected =
                shown(150.0 + 200.0 * (patch % 4), isGrey ? 512.0 : 480.0, isGrey ? 512.0 : 550.0, lightOf);
            EXPECT_NEAR(color.red(), expected[0], 4.0) << movie.toStdString() << patch;
            EXPECT_NEAR(color.green(), expected[1], 4.0) << movie.toStdString() << patch;
            EXPECT_NEAR(color.blue(), expected[2], 4.0) << movie.toStdString() << patch;
        }
        EXPECT_GT(difference(mapped, picture(movie, {})), 10.0);
    }
    for (const QString &movie :
         {u"kinds/ten-bit.mkv"_s, u"kinds/full.avi"_s, u"kinds/vp9-alpha.webm"_s, u"kinds/rgb.mkv"_s}) {
        EXPECT_EQ(picture(movie, {.toneMap = true}), picture(movie, {}));
    }
}

/// How much the lines of a picture differ from the mean of their neighbours.
static double combs(const QImage &picture)
{
    double sum = 0.0;
    for (int y = 1; y + 1 < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            sum += std::abs(2 * qGreen(picture.pixel(x, y)) - qGreen(picture.pixel(x, y - 1)) -
                            qGreen(picture.pixel(x, y + 1)));
        }
    }
    return sum / picture.width() / picture.height();
}

TEST_P(PicturesTest, HalfPicturesAreTakenApartWhereThereAreSome)
{
    for (const QString &movie : {u"pictures/bars.mpg"_s, u"pictures/bars.avi"_s}) {
        const bool hasLast = GetParam() != FrameSource::Key;
        for (const double time : {1.0, hasLast ? 1.96 : 0.5}) {
            const QImage plain = picture(movie, {}, time);
            const QImage whole = picture(movie, {.deinterlace = true}, time);
            EXPECT_GT(combs(plain), 20.0) << movie.toStdString();
            EXPECT_LT(combs(whole), 0.2 * combs(plain)) << movie.toStdString() << time;
            EXPECT_LT(difference(plain, whole), 30.0);
        }
    }
    for (const QString &movie : {u"kinds/b.mp4"_s, u"kinds/asp.avi"_s, u"kinds/vp9-alpha.webm"_s}) {
        EXPECT_LT(difference(picture(movie, {.deinterlace = true}), picture(movie, {})), 0.5) << movie.toStdString();
    }
}

TEST_P(PicturesTest, BlankTilesTakeTheNextPictureOfTheirOwnShare)
{
    for (const QString &movie : {u"pictures/blank.mkv"_s, u"pictures/blank.ts"_s}) {
        MovieTiles tiles;
        tiles.moviePath = movies + movie;
        tiles.movieSize = QSize(160, 120);
        tiles.options.source = GetParam();
        static constexpr std::array times{0.0, 0.8, 2.0, 3.9};
        tiles.count = times.size();
        tiles.share = 0.8;
        tiles.timeOf = [](std::int64_t tile) { return times.at(static_cast<std::size_t>(tile)); };
        tiles.sizeOf = [](std::int64_t) { return QSize(80, 60); };
        for (const bool skips : {false, true}) {
            tiles.options.skipBlank = skips;
            const auto frames = ChosenFrames::ofTiles(grabber, tiles, never);
            std::vector<GrabbedFrame> shown;
            std::generate_n(std::back_inserter(shown), times.size(), [&frames] { return frames->next({}); });
            const bool isKey = GetParam() == FrameSource::Key; // the keys are 0.96 s apart
            for (const std::size_t blank : {0U, 3U}) {
                EXPECT_TRUE(isBlank(shown.at(blank).picture) && !shown.at(blank).seconds) << blank;
            }
            EXPECT_EQ(isBlank(shown.at(1).picture), !skips || isKey);
            EXPECT_EQ(shown.at(1).seconds, skips && !isKey ? std::optional(1.32) : std::nullopt);
            EXPECT_FALSE(isBlank(shown.at(2).picture) || shown.at(2).seconds);
        }
        tiles.share = 1.2;
        const auto frames = ChosenFrames::ofTiles(grabber, tiles, never);
        EXPECT_TRUE(isBlank(frames->next({}).picture));
        const GrabbedFrame next = frames->next({});
        EXPECT_NEAR(next.seconds.value_or(0.0), GetParam() == FrameSource::Key ? 1.92 : 1.32, 0.001);
        EXPECT_FALSE(isBlank(next.picture));
    }
}
