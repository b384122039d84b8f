#include "Shared/FrameGrabber.h"

#include "media/VXMediaInfo.h"
#include "movies/ColorClock.h"
#include "platform/files/PathText.h"
#include "support/ScriptedTool.h"

#include <QLocale>

#include <gmock/gmock.h>

#include <cmath>
#include <thread>

using namespace Qt::StringLiterals;

using namespace testing;

const QString movies = QStringLiteral(TESSARINE_TEST_MOVIES "/");
const QString picture = movies + u"picture.jpg"_s;
const CancelFlag never{false};

/// The start of a tool's script that puts a picture where it was told to.
const QByteArray writePicture = "for last; do :; done; cp '" + PathText::toBytes(picture) + "' \"$last\";";

struct FrameGrabberTest : Test {
    ScratchFolder folder;
    FrameGrabber ffmpeg{QStringLiteral(TESSARINE_TEST_FFMPEG), folder.path()};
};

TEST_F(FrameGrabberTest, ShowsPicturesOfTheSizeThatTheProbeTells)
{
    for (const char *name : {"short.mp4", "odd.mkv", "portrait.mp4", "other-way.mp4", "anamorphic.mp4", "two-sizes.mkv",
                             "small-default.mkv", "no-duration.mkv", "short.avi"}) {
        VXMediaInfoItem item;
        item.filePath = movies + QLatin1StringView(name);
        std::optional<MediaError> error;
        VXMediaInfo::dumpMediaInfo(item, error, never);
        const GrabbedFrame frame = ffmpeg.createThumbnail(item.filePath, 1.0, never);
        EXPECT_EQ(frame.picture.size(), QSize(item.pixWidth, item.pixHeight)) << name;
    }
}

TEST_F(FrameGrabberTest, ShowsThePreviousPictureWhenThereIsNoNewOne)
{
    const QString movie = movies + u"short.mp4";
    for (const auto &[path, seconds] :
         {std::pair{movie, 99.0}, {movies + u"text.mp4", 0.0}, {movie, NAN}, {movie, INFINITY}}) {
        const GrabbedFrame none = ffmpeg.createThumbnail(path, seconds, never);
        EXPECT_TRUE(none.picture.isNull() && !none.isNew);
    }
    EXPECT_TRUE(ffmpeg.grab({movie, 1.0, u"nonsense"_s}, never, {}).problem.contains(u"nonsense"));
    ASSERT_TRUE(ffmpeg.createThumbnail(movie, 1.5, never).isNew);
    FrameGrabber missing(folder.path("missing"), folder.path());
    for (FrameGrabber *grabber : {&ffmpeg, &missing}) {
        const GrabbedFrame old = grabber->createThumbnail(movie, 99.0, never);
        EXPECT_FALSE(old.isNew);
        ASSERT_FALSE(old.picture.isNull());
        EXPECT_EQ(ColorClock::secondOfColor(old.picture.pixelColor(9, 9)), 1);
    }
}

TEST_F(FrameGrabberTest, GivesTheToolItsArgumentsInOrder)
{
    QLocale::setDefault(QLocale(QLocale::German));
    FrameGrabber grabber(scriptedTool(folder, "tool", writePicture + "printf '%s\\0' \"$@\" >\"${0%/*}/recorded\""),
                         folder.path());
    for (const auto &[seconds, text] : {std::pair{0.0, "0.00"}, {12.345, "12.35"}}) {
        EXPECT_TRUE(grabber.createThumbnail(PathText::fromBytes("/a b\xe9\n.mp4"), seconds, never).isNew);
        const QByteArrayList expected = {"-ss",      text, "-i", "/a b\xe9\n.mp4",
                                         "-vframes", "1",  "-y", folder.bytes("x.jpg")};
        EXPECT_EQ(folder.read("recorded"), expected.join('\0') + '\0');
    }
    EXPECT_FALSE(grabber.createThumbnail(u"/dev/null"_s, 0.0, never).isNew) << "is no movie: not run";
    QLocale::setDefault(QLocale::c());
}

TEST_F(FrameGrabberTest, GrabsOneAfterTheOther)
{
    const QByteArray script = "cd \"${0%/*}\"; mkdir lock || touch overlap;" + writePicture + "rmdir lock";
    FrameGrabber grabber(scriptedTool(folder, "tool", script), folder.path());
    const auto grabSix = [&grabber] {
        for (int grab = 0; grab < 6; ++grab) {
            EXPECT_TRUE(grabber.createThumbnail(picture, grab, never).isNew);
        }
    };
    std::jthread other(grabSix);
    grabSix();
    other.join();
    EXPECT_FALSE(folder.has("overlap"));
}
