#include "app/ExportCommand.h"

#include "Shared/FrameGrabber.h"
#include "app/Console.h"
#include "app/DefaultsSeed.h"
#include "movies/ColorClock.h"
#include "platform/PathText.h"
#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <vector>

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE *)>;

/// Runs the command in this process with the real tool, a home and a store of its own.
class ExportCommandTest : public testing::Test {
protected:
    static QString movie(const char *name)
    {
        return QStringLiteral(TESSARINE_TEST_MOVIES "/") + QString::fromUtf8(name);
    }
    QString path(const char *name) const { return folder.filePath(QString::fromUtf8(name)); }

    /// Runs it with options, separated by blanks, on paths; "-o" is added where `output` is set.
    int run(const QByteArray &optionText, const QStringList &paths)
    {
        const File out(std::tmpfile(), std::fclose);
        const File err(std::tmpfile(), std::fclose);
        UserDefaults defaults(path("store.ini"));
        DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), path("home"));
        FrameGrabber grabber(QStringLiteral(TESSARINE_FFMPEG), folder.path());
        QStringList words = QString::fromLatin1(optionText).split(u' ', Qt::SkipEmptyParts);
        if (!output.isEmpty()) {
            words += {QStringLiteral("-o"), output};
        }
        const ExportOptions options = ExportOptions::parse(
            QStringList{QStringLiteral("tessarine"), QStringLiteral("--export"), QStringLiteral("-q")} + words +
            QStringList{QStringLiteral("--")} + paths);
        EXPECT_EQ(options.action, ExportOptions::Action::Export) << options.problem.toStdString();
        Console console(out.get(), err.get(), options.quiet);
        const int status = ExportCommand(options, {defaults, grabber, console, path("home"), cancelled}).run();
        results = lines(out);
        messages = lines(err);
        return status;
    }

    QImage onlyImage() const
    {
        EXPECT_EQ(results.size(), 1) << messages.join('\n').constData();
        return QImage(PathText::fromBytes(results.value(0)));
    }

    QTemporaryDir folder;
    QString output = path("out");
    CancelFlag cancelled = false;
    QByteArrayList results;
    QByteArrayList messages;

private:
    static QByteArrayList lines(const File &file)
    {
        std::rewind(file.get());
        QByteArray bytes(1 << 16, '\0');
        bytes.resize(static_cast<qsizetype>(std::fread(bytes.data(), 1, 1 << 16, file.get())));
        return bytes.isEmpty() ? QByteArrayList() : bytes.chopped(1).split('\n');
    }
};

TEST_F(ExportCommandTest, EachTileShowsItsSecond)
{
    output = path("new/deep");
    struct Case {
        const char *range;
        std::array<int, 6> seconds;
    };
    // Without a range the ends of the movie are left out: 2 to 10 s in steps of 1.6.
    for (const Case &clip : {Case{"", {2, 3, 5, 6, 8, 10}}, Case{"--start 0.5 --end 00:00:10.5", {0, 2, 4, 6, 8, 10}},
                             Case{"--start 6.5", {6, 7, 7, 8, 9, 10}}}) {
        ASSERT_EQ(
            run("--rows 2 --columns 3 --tile-width 80 --format png --set MetadataTextKey=0 " + QByteArray(clip.range),
                {movie("clock.mp4")}),
            0)
            << messages.join('\n').constData();
        const QImage image = onlyImage();
        ASSERT_EQ(image.size(), QSize(3 * 80 + 2 * 4 + 40, 2 * 60 + 4 + 40));
        for (int tile = 0; tile < 6; ++tile) {
            const QPoint middle(20 + 84 * (tile % 3) + 40, 20 + 64 * (tile / 3) + 30);
            EXPECT_EQ(ColorClock::secondOfColor(image.pixelColor(middle)), clip.seconds[static_cast<std::size_t>(tile)])
                << "tile " << tile << " of " << clip.range;
        }
    }
}

TEST_F(ExportCommandTest, TilesHaveTheShapeOfThePictureThatTheToolWrites)
{
    struct Case {
        const char *name;
        QSize tile;
    };
    for (const Case &shape :
         {Case{"portrait.mp4", {120, 160}}, Case{"anamorphic.mp4", {120, 96}}, Case{"two-sizes.mkv", {120, 90}}}) {
        ASSERT_EQ(run("--rows 1 --columns 1 --tile-width 120 --set MetadataTextKey=0", {movie(shape.name)}), 0);
        EXPECT_EQ(onlyImage().size(), shape.tile + QSize(40, 40)) << shape.name;
    }
}

TEST_F(ExportCommandTest, BadMoviesAreToldAndTheGoodOnesMade)
{
    ASSERT_EQ(mkfifo(qPrintable(path("fifo.mp4")), 0600), 0);
    QDir(folder.path()).mkpath(QStringLiteral("empty"));
    QDir(folder.path()).mkpath(QStringLiteral("loop"));
    QFile::link(path("nowhere"), path("dangling.mp4"));
    QFile::link(path("self.mp4"), path("self.mp4"));
    QFile::link(path("loop"), path("loop/a"));
    QFile::link(path("loop"), path("loop/b"));
    QFile::copy(movie("short.mp4"), path("loop/x.mp4"));
    QFile::link(path("loop"), path("folder-link"));
    const QStringList bad{path("fifo.mp4"),     path("empty"),        path("dangling.mp4"), path("missing.mp4"),
                          path("self.mp4"),     path("folder-link"),  movie("text.mp4"),    movie("empty.mp4"),
                          movie("cut-off.mp4"), movie("noise.mp4"),   movie("sound.m4a"),   movie("cover.m4a"),
                          movie("picture.mp4"), movie("terminal.ans")};
    EXPECT_EQ(run("--rows 1", bad + QStringList{path("loop"), movie("short.mp4")}), 1);
    EXPECT_EQ(messages.size(), bad.size()) << messages.join('\n').constData();
    for (const QString &one : bad) {
        EXPECT_TRUE(std::ranges::any_of(messages, [&](const QByteArray &line) {
            return line.startsWith(QByteArray("tessarine: " + one.toUtf8() + ": "));
        })) << one.toStdString();
    }
    EXPECT_EQ(results, (QByteArrayList{path("out/x.jpg").toUtf8(), path("out/short.jpg").toUtf8()}));
}

TEST_F(ExportCommandTest, HostileNamesLoadAndExport)
{
    output.clear();
    const std::string longName = std::string(251, 'x') + ".mp4";
    const std::vector<std::string> names{" spaced name .mp4",
                                         "new\nline.mp4",
                                         "'quotes\".mp4",
                                         "%s%d%n %20.mp4",
                                         "-y.mp4",
                                         "http:name.mp4",
                                         "img%03d.mp4",
                                         "🎬.mp4",
                                         "bad\xff\xfe"
                                         "bytes.mp4",
                                         longName,
                                         std::string(252, 'y') + ".ts",
                                         "no extension"};
    const std::filesystem::path films = folder.filePath(QStringLiteral("films")).toStdString();
    std::filesystem::create_directory(films);
    QStringList paths;
    for (const std::string &name : names) {
        std::filesystem::copy_file(movie("short.mp4").toStdString(), films / name);
        paths += PathText::fromBytes(QByteArray::fromStdString((films / name).string()));
    }
    EXPECT_EQ(run("--beside --rows 1 --columns 1", paths), 0) << messages.join('\n').constData();
    EXPECT_EQ(messages.size(), 0) << messages.join('\n').constData();
    std::size_t images = 0;
    for (const auto &entry : std::filesystem::directory_iterator(films)) {
        images += entry.path().extension() == ".jpg" ? 1U : 0U;
    }
    EXPECT_EQ(images, names.size());
    EXPECT_TRUE(std::filesystem::exists(films / "bad\xff\xfe"
                                                "bytes.jpg"));
    std::filesystem::remove_all(films); // Qt cannot name all of it
}

TEST_F(ExportCommandTest, TheDefaultFolderIsMadeOnlyForAnImage)
{
    output.clear();
    EXPECT_EQ(run("", {movie("text.mp4")}), 1);
    EXPECT_FALSE(QDir(path("home")).exists());
    EXPECT_EQ(run("--rows 1", {movie("short.mp4")}), 0);
    EXPECT_EQ(results, QByteArrayList{path("home/Pictures/Tessarine/short.jpg").toUtf8()});
}

TEST_F(ExportCommandTest, StoredSettingsHoldAndOptionsLieOverThem)
{
    output.clear();
    {
        UserDefaults stored(path("store.ini"));
        stored.setInteger(PreferenceKeys::rowNumber, 1);
        stored.setInteger(PreferenceKeys::columeNumber, 4);
        stored.setInteger(PreferenceKeys::metadataText, 0);
        stored.setBool(PreferenceKeys::sameAsOrigin, true);
        stored.setBool(PreferenceKeys::clearAfterFinish, true);
        stored.setText(PreferenceKeys::outputFolder, folder.path());
    }
    EXPECT_EQ(run("--columns 1 --tile-width 100", {movie("short.mp4"), movie("short.mp4")}), 0);
    EXPECT_EQ(results, (QByteArrayList{path("short.jpg").toUtf8(), path("short(1).jpg").toUtf8()}));
    EXPECT_EQ(QImage(path("short.jpg")).size(), QSize(140, 115));
    EXPECT_EQ(UserDefaults(path("store.ini")).int32Value(PreferenceKeys::columeNumber), 4);
}

TEST_F(ExportCommandTest, OddSettingsNeverCrash)
{
    struct Case {
        const char *setting;
        int status;
    };
    for (const Case &odd :
         {Case{"DefaultRowNumber=0", 0}, Case{"DefaultRowNumber=-7", 1}, Case{"DefaultTileWidth=1000000", 1},
          Case{"DefaultBorderWidth=2147483647", 1}, Case{"DefaultBorderWidth=-30", 0},
          Case{"DefaultHGaps=-99999999999", 1}, Case{"DefaultTileBorderWidth=100000", 0}, Case{"OutputFormatKey=4", 1},
          Case{"OutputFormatKey=-1", 1}, Case{"GridTextPositionKey=99", 0}, Case{"MetadataTextKey=-1", 0},
          Case{"DefultBkgColor=#00000000", 0}}) {
        EXPECT_EQ(run("--columns 1 --set " + QByteArray(odd.setting), {movie("short.mp4")}), odd.status)
            << odd.setting << messages.join('\n').constData();
        EXPECT_EQ(messages.size(), odd.status) << odd.setting << messages.join('\n').constData();
    }
}

TEST_F(ExportCommandTest, AFolderThatCannotBeWrittenIsToldAtOnce)
{
    output = path("file");
    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(run("", {movie("short.mp4"), movie("clock.mp4")}), 1);
    EXPECT_EQ(messages,
              QByteArrayList{"tessarine: " + path("file").toUtf8() + ": images cannot be written into this folder"});
}

TEST_F(ExportCommandTest, AFullDiskLeavesNoPartialImage)
{
    const QString disk = output = path("disk");
    QDir().mkpath(disk);
    if (mount("tmpfs", qPrintable(disk), "tmpfs", 0, "size=16k") != 0) {
        GTEST_SKIP() << "this machine lets nobody mount a small disk";
    }
    EXPECT_EQ(run("--rows 4", {movie("clock.mp4")}), 1);
    EXPECT_TRUE(QDir(disk).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    EXPECT_TRUE(messages.value(0).endsWith("No space left on device")) << messages.join('\n').constData();
    EXPECT_EQ(umount(qPrintable(disk)), 0);
}

TEST_F(ExportCommandTest, AnInterruptEndsItBeforeTheFirstMovie)
{
    cancelled = true;
    EXPECT_EQ(run("", {movie("clock.mp4")}), 130);
    EXPECT_TRUE(results.isEmpty());
}

} // namespace
