#include "media/VXMediaInfo.h"
#include "platform/files/PathText.h"
#include "support/ScratchFolder.h"
#include "support/WithoutPrivileges.h"

#include <QFile>
#include <QtEndian>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <thread>

using namespace testing;

const QString movies = QStringLiteral(TESSARINE_TEST_MOVIES "/");
const CancelFlag never{false};

static std::optional<MediaError> probe(VXMediaInfoItem &item, const QString &path, const CancelFlag &cancelled = never)
{
    std::optional<MediaError> error;
    item.filePath = path;
    VXMediaInfo::dumpMediaInfo(item, error, cancelled);
    return error;
}

struct Readable {
    const char *file;
    VXMediaType kind;
    double duration, fps;
    const char *codec;
};

const Readable readable[] = {
    {"clock.mp4", VXMediaType::Movie, 12.0, 10.0, "h264"},
    {"odd.mkv", VXMediaType::Movie, 3.0, 10.0, "ffv1"},
    {"anamorphic.mp4", VXMediaType::Movie, 3.0, 10.0, "h264"},
    {"no-duration.mkv", VXMediaType::Movie, 0.0, 10.0, "h264"},
    {"short.avi", VXMediaType::Movie, 3.0, 10.0, "mpeg4"},
    {"cover.m4a", VXMediaType::Audio, 2.0, 0.0, ""},
    {"picture.jpg", VXMediaType::Image, 0.0, 0.0, ""},
};

TEST(Probe, ReadsAllFields)
{
    for (const Readable &expected : readable) {
        SCOPED_TRACE(expected.file);
        VXMediaInfoItem item;
        const auto error = probe(item, movies + QLatin1StringView(expected.file));
        ASSERT_FALSE(error) << error->description.toStdString();
        EXPECT_EQ(item.eumMediaType, expected.kind);
        EXPECT_NEAR(item.duration, expected.duration, 0.1);
        if (expected.kind != VXMediaType::Movie) {
            continue;
        }
        EXPECT_DOUBLE_EQ(item.videoFps, expected.fps);
        EXPECT_EQ(item.strVideoCodecName, QLatin1StringView(expected.codec));
        EXPECT_TRUE(std::isfinite(item.videoBitrate));
        EXPECT_EQ(item.videoBitrate > 0, item.duration > 0);
    }
}

TEST(Probe, TellsTheShapeOfPixelsWithinLimits)
{
    const ScratchFolder folder;
    QFile file(movies + u"anamorphic.mp4");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    const qsizetype shape = bytes.indexOf("pasp") + 4;
    ASSERT_GT(shape, 4);
    constexpr double stated = 16.0 / 15.0; // by the pictures themselves
    for (const auto &[width, height, aspect] : {std::tuple{2U, 3U, 2.0 / 3.0},
                                                {1U, 9U, 1.0 / 9.0},
                                                {1U, 11U, 1.0},
                                                {200U, 1U, 1.0},
                                                {0U, 0U, stated},
                                                {7U, 0U, stated},
                                                {0xffffffffU, 1U, stated}}) {
        qToBigEndian(width, bytes.data() + shape);
        qToBigEndian(height, bytes.data() + shape + 4);
        VXMediaInfoItem item;
        EXPECT_FALSE(probe(item, folder.write("shape.mp4", bytes)));
        EXPECT_NEAR(item.traits.sampleAspect, aspect, 1e-6) << width << ':' << height;
        EXPECT_EQ(item.pixWidth, 720);
    }
}

TEST(Probe, RefusesWhatIsNoMovieFileAndLeavesTheItemAlone)
{
    const ScratchFolder folder;
    // Lists that name a FIFO, which would hold whoever opened it, and one that names the network.
    for (const char *fifo : {"fifo.mp4", "fifo.ts", "titles.sub"}) {
        ASSERT_EQ(::mkfifo(folder.bytes(fifo).constData(), 0644), 0);
    }
    const QString concat = folder.write("list.ffconcat", "ffconcat version 1.0\nfile fifo.ts\n");
    const QByteArray m3u = "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\n";
    const QString playlist = folder.write("list.m3u8", m3u + "fifo.ts\n#EXT-X-ENDLIST\n");
    const QString network = folder.write("net.m3u8", m3u + "http://127.0.0.1:9/a.ts\n#EXT-X-ENDLIST\n");
    const QString titles = folder.write("titles.idx", "# VobSub index file, v7\nid: en, index: 0\n"
                                                      "timestamp: 00:00:01:000, filepos: 000000000\n");
    const QString unreadable = folder.write("unreadable.mp4", "movie");
    folder.setMode(0, "unreadable.mp4");
    const std::pair<QString, const char *> cases[] = {
        {movies + u"text.mp4", "not a media file"},
        {movies + u"cut-off.mp4", "not a media file"},
        {movies + u"noise.mp4", "not a media file"},
        {folder.path(), "is a folder"},
        {folder.link(".", "folder-link.mp4"), "is a folder"},
        {folder.path("fifo.mp4"), "not a regular file"},
        {folder.link("/dev/zero", "device-link.mp4"), "not a regular file"},
        {QString(), "No such file"},
        {u"concat:" + movies + u"clock.mp4", "No such file"},
        {unreadable, "Permission denied"},
        {concat, "not a media file"},
        {titles, "not a media file"},
        {playlist, ""},
        {network, ""},
    };
    VXMediaInfoItem cancelled;
    EXPECT_TRUE(probe(cancelled, movies + u"clock.mp4", CancelFlag(true)));
    for (const auto &[path, reason] : cases) {
        std::optional<WithoutPrivileges> plainUser; // who may not reach the movies, in root's own clone
        if (path == unreadable) {
            plainUser.emplace();
        }
        VXMediaInfoItem item;
        item.pixWidth = 7;
        const auto error = probe(item, path);
        ASSERT_TRUE(error) << path.toStdString();
        EXPECT_THAT(error->description.toStdString(), HasSubstr(reason));
        EXPECT_EQ(item.pixWidth, 7);
        EXPECT_EQ(item.eumMediaType, VXMediaType::Unknown);
    }
}

TEST(Probe, RunsOnSeveralThreadsAndLeavesNothingOpen)
{
    const auto openFiles = [] { return std::ranges::distance(std::filesystem::directory_iterator("/proc/self/fd")); };
    const auto probeAll = [] {
        for (const Readable &movie : readable) {
            VXMediaInfoItem item;
            EXPECT_FALSE(probe(item, movies + QLatin1StringView(movie.file)));
        }
    };
    const auto before = openFiles();
    std::array<std::jthread, 3> threads;
    std::ranges::generate(threads, [&] { return std::jthread(probeAll); });
    std::ranges::for_each(threads, &std::jthread::join);
    EXPECT_EQ(openFiles(), before);
}
