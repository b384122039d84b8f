#include "app/command/ExportCommand.h"

#include "Shared/FrameGrabber.h"
#include "Shared/PreferenceKeys.h"
#include "app/command/Console.h"
#include "movies/ColorClock.h"
#include "platform/store/UserDefaults.h"
#include "prefs/DefaultsSeed.h"
#include "support/ScratchFolder.h"
#include "support/SmallDisk.h"

#include <QImage>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <vector>

using namespace Qt::StringLiterals;

/// Runs the command in this process with the real tool, a home and a store of its own.
struct ExportCommandTest : testing::Test {
    static QString movie(const char *name)
    {
        return QStringLiteral(TESSARINE_TEST_MOVIES "/") + QString::fromUtf8(name);
    }
    /// Runs it with options, separated by blanks, on paths; "-o" is added where `output` is set.
    int run(const QByteArray &optionText, const QStringList &paths)
    {
        using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;
        const Stream out(std::fopen(folder.bytes("results").constData(), "w"), std::fclose);
        const Stream err(std::fopen(folder.bytes("messages").constData(), "w"), std::fclose);
        UserDefaults defaults(folder.path("settings.json"));
        DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), folder.path("home"),
                                     DefaultsSeed::OutputFolder::WhenWritten);
        FrameGrabber grabber(QStringLiteral(TESSARINE_FFMPEG), folder.path());
        QStringList words = QString::fromLatin1("tessarine --export -q " + optionText).split(u' ', Qt::SkipEmptyParts);
        if (!output.isEmpty()) {
            words += {u"-o"_s, output};
        }
        const ExportOptions options = ExportOptions::parse(words + QStringList{u"--"_s} + paths).value();
        Console console(out.get(), err.get(), options.quiet);
        const int status = ExportCommand(options, {.defaults = defaults,
                                                   .grabber = grabber,
                                                   .console = console,
                                                   .home = folder.path("home"),
                                                   .cancelled = cancelled})
                               .run();
        results = linesOf("results");
        messages = linesOf("messages");
        return status;
    }
    QByteArrayList linesOf(const char *name) const
    {
        const QByteArray text = folder.read(name);
        return text.isEmpty() ? QByteArrayList() : text.chopped(1).split('\n');
    }

    ScratchFolder folder;
    QString output = folder.path("out");
    CancelFlag cancelled = false;
    QByteArrayList results;
    QByteArrayList messages;
};

TEST_F(ExportCommandTest, EachTileShowsItsSecond)
{
    output = folder.path("new/deep");
    // Without a range the ends of the movie are left out: 2 to 10 s in steps of 1.6.
    const std::tuple<QByteArray, QByteArray, std::vector<int>> clips[] = {
        {"--format png", "new/deep/clock.png", {2, 3, 5, 6, 8, 10}},
        {"--format tiff --start 0.5 --end 00:00:10.5", "new/deep/clock.tiff", {0, 2, 4, 6, 8, 10}},
        {"--format bmp --start 6.5", "new/deep/clock.bmp", {6, 7, 7, 8, 9, 10}},
        {"--format bmp --start 6.5 --frames exact", "new/deep/clock(1).bmp", {6, 7, 7, 8, 9, 10}},
        {"--format png --start 6.5 --frames key", "new/deep/clock(1).png", {6, 7, 7, 8, 9, 10}},
    };
    for (const auto &[options, name, seconds] : clips) {
        run("--rows 2 --columns 3 --tile-width 80 --set MetadataTextKey=0 " + options, {movie("clock.mp4")});
        ASSERT_EQ(results, QByteArrayList{folder.bytes(name)});
        const QImage image(folder.path(name));
        ASSERT_EQ(image.size(), QSize(3 * 80 + 2 * 4 + 40, 2 * 60 + 4 + 40));
        std::vector<int> shown;
        for (int tile = 0; tile < 6; ++tile) {
            const QPoint middle(20 + 84 * (tile % 3) + 40, 20 + 64 * (tile / 3) + 30);
            shown.push_back(ColorClock::secondOfColor(image.pixelColor(middle)));
        }
        EXPECT_EQ(shown, seconds) << options.constData();
    }
}

TEST_F(ExportCommandTest, TilesHaveTheShapeThatIsAskedFor)
{
    for (const char *frames : {"tool", "exact", "key"}) {
        for (const auto &[option, height] : {std::pair{"", 80}, {" --display-aspect", 75}}) {
            run(QByteArray("--rows 1 --columns 1 --tile-width 100 --set MetadataTextKey=0 --frames ") + frames + option,
                {movie("anamorphic.mp4")});
            ASSERT_EQ(results.size(), 1);
            EXPECT_EQ(QImage(QString::fromUtf8(results.first())).height(), 40 + height) << frames << option;
        }
    }
}

TEST_F(ExportCommandTest, BadMoviesAreToldAndTheGoodOnesMadeInTheDefaultFolder)
{
    output.clear();
    ASSERT_EQ(mkfifo(folder.bytes("fifo.mp4").constData(), 0600), 0);
    folder.makeFolder("loop");
    folder.link("../loop", "loop/again");
    folder.link(movie("short.mp4").toUtf8(), "loop/x.mp4");
    QStringList bad{folder.path("fifo.mp4"),
                    folder.makeFolder("empty"),
                    folder.path("missing.mp4"),
                    folder.link("self.mp4", "self.mp4"),
                    folder.link("loop", "folder-link"),
                    folder.write("DISC.VOB")};
    for (const char *name : {"text.mp4", "empty.mp4", "cut-off.mp4", "noise.mp4", "sound.m4a", "cover.m4a",
                             "picture.mp4", "terminal.ans"}) {
        bad += movie(name);
    }
    EXPECT_EQ(run("--rows 1", bad + QStringList{folder.path("loop"), movie("short.mp4")}), 1);
    EXPECT_EQ(messages.size(), bad.size()) << messages.join('\n').constData();
    for (const QString &one : bad) {
        EXPECT_TRUE(messages.join('\n').contains(QByteArray("tessarine: " + one.toUtf8() + ": "))) << one.toStdString();
    }
    const QByteArray pictures = folder.bytes("home/Pictures/Tessarine");
    EXPECT_EQ(results, (QByteArrayList{pictures + "/x.jpg", pictures + "/short.jpg"}));
}

TEST_F(ExportCommandTest, HostileNamesLoadAndExport)
{
    output.clear();
    const QByteArray longest(251, 'x');
    const QByteArrayList names{"new\nline.mp4", "'quotes\".mp4", "%s%d%n %20.mp4", "-y.mp4",
                               "http:name.mp4", "img%03d.mp4",   "no extension",   "bad\xff\xfe bytes.mp4",
                               "*?[a].mp4",     longest + ".mp4"};
    folder.makeFolder("films");
    QStringList paths;
    for (const QByteArray &name : names) {
        paths += folder.link(movie("short.mp4").toUtf8(), "films/" + name);
    }
    EXPECT_EQ(run("--beside --rows 1 --columns 1", paths), 0);
    EXPECT_TRUE(messages.isEmpty()) << messages.join('\n').constData();
    EXPECT_EQ(folder.names("films").filter(u".jpg"_s).size(), names.size());
    EXPECT_TRUE(folder.has("films/bad\xff\xfe bytes.jpg"));
}

TEST_F(ExportCommandTest, StoredSettingsHoldAndOptionsLieOverThem)
{
    output.clear();
    {
        UserDefaults stored(folder.path("settings.json"));
        stored.setInteger(PreferenceKeys::rowNumber, 1);
        stored.setInteger(PreferenceKeys::columeNumber, 4);
        stored.setInteger(PreferenceKeys::metadataText, 0);
        stored.setBool(PreferenceKeys::sameAsOrigin, true);
        stored.setBool(PreferenceKeys::clearAfterFinish, true);
        stored.setText(PreferenceKeys::outputFolder, folder.path());
    }
    EXPECT_EQ(run("--columns 1 --tile-width 100", {movie("short.mp4"), movie("short.mp4")}), 0);
    EXPECT_EQ(results, (QByteArrayList{folder.bytes("short.jpg"), folder.bytes("short(1).jpg")}));
    EXPECT_EQ(QImage(folder.path("short.jpg")).size(), QSize(140, 115));
    EXPECT_EQ(UserDefaults(folder.path("settings.json")).int32Value(PreferenceKeys::columeNumber), 4);
}

TEST_F(ExportCommandTest, ARangeOutsideTheMovieIsWrongUsage)
{
    EXPECT_EQ(run("--rows 1 --start 500", {movie("short.mp4"), movie("clock.mp4")}), 2);
    EXPECT_EQ(results.size(), 2);
    EXPECT_TRUE(messages.value(0).endsWith("goes beyond the end of the movie at 00:00:03"))
        << messages.join('\n').data();
}

TEST_F(ExportCommandTest, AFullDiskLeavesNoPartialImage)
{
    const SmallDisk disk(16 << 10);
    EXPECT_EQ(run("--rows 4", {movie("clock.mp4")}), 1);
    EXPECT_EQ(folder.names("out"), QStringList());
    EXPECT_TRUE(messages.value(0).endsWith("File too large")) << messages.join('\n').constData();
}
