#include "render/ExportJob.h"

#include "Shared/FrameGrabber.h"
#include "Shared/PreferenceKeys.h"
#include "collage/KTMovieObject.h"
#include "platform/desktop/AlertPanel.h"
#include "platform/desktop/Workspace.h"
#include "platform/store/UserDefaults.h"
#include "render/ExportObserver.h"
#include "render/ImageFormats.h"
#include "render/MovieSource.h"
#include "support/ScriptedTool.h"

#include <QFile>
#include <QImage>
#include <QTest>

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <chrono>
#include <vector>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;
using testing::ElementsAre;

/// Keeps a diary of an export: everything it calls, in order.
class Diary final : public MovieSource, public AlertPanel, public Workspace, public ExportObserver {
public:
    std::vector<std::shared_ptr<KTMovieObject>> movies;
    std::vector<std::string> entries;
    QStringList reasons;
    int alertAnswer = 0;
    std::function<void(const ExportProgress &)> onProgress = [](const ExportProgress &) {};
    int count() override { return static_cast<int>(movies.size()); }
    std::shared_ptr<KTMovieObject> movieAt(int index) override { return movies.at(static_cast<std::size_t>(index)); }
    void removeAll() override
    {
        movies.clear();
        write(u"clear"_s);
    }
    int run(const QString &title, const QString &message, const QStringList &buttons) override
    {
        write(u"alert " + title + u'|' + message + u'|' + buttons.join(u','));
        return alertAnswer;
    }
    void openFile(const QString &path) override { write(u"open " + name(path)); }
    void revealFile(const QString &path) override { write(u"reveal " + name(path)); }
    void updateProgress(const ExportProgress &progress) override
    {
        const auto &[path, movie, movieCount, tile, tileCount, picture, waited] = progress;
        write(u"movie %1/%2 tile %3/%4"_s.arg(movie).arg(movieCount).arg(tile).arg(tileCount));
        onProgress(progress);
    }
    void movieEnded(const ExportResult &result) override
    {
        static constexpr std::array kinds{"written ", "incomplete ", "failed "};
        const bool failed = result.kind == ExportResult::Kind::Failed;
        EXPECT_EQ(result.kind == ExportResult::Kind::Written, result.reason.isEmpty());
        write(QLatin1StringView(kinds.at(static_cast<std::size_t>(result.kind))) +
              name(failed ? result.filePath : result.imagePath));
        reasons += result.reason;
    }
    void exportEnded() override { write(u"end"_s); }

private:
    void write(const QString &text) { entries.push_back(text.toStdString()); }
    static QString name(const QString &path) { return path.section(u'/', -1); }
};

/// Exports movies "a", "b" … of one row with a tool that copies one red picture, whatever it is asked for.
struct ExportJobTest : testing::Test {
    ExportJobTest()
    {
        QImage picture(32, 24, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(folder.path("picture.jpg"));
        folder.makeFolder("out");
    }
    void add(const QByteArray &name, std::int32_t columns = 1, double tileWidth = 32.0)
    {
        diary.movies.push_back(std::make_shared<KTMovieObject>());
        diary.movies.back()->filePath = folder.write(name);
        diary.movies.back()->setSettings(
            {.gridWidth = tileWidth, .gridHeight = 24.0, .rowNumber = 1, .columeNumber = columns});
    }
    void exportAll()
    {
        FrameGrabber grabber(tool, folder.path(), {.silence = patience});
        ExportJob job({.aryItems = diary,
                       .grabber = grabber,
                       .defaults = defaults,
                       .alert = diary,
                       .workspace = diary,
                       .observer = diary,
                       .outputFolder = [this] { return outputFolder; },
                       .bExportCanceled = cancelled});
        job.run();
        job.run(); // a second time does nothing
        EXPECT_EQ(job.state(), ExportJob::State::Finished);
    }

    ScratchFolder folder;
    QString tool = scriptedTool(folder, "tool", "cp \"${0%/*}/picture.jpg\" \"$8\"");
    QString outputFolder = folder.path("out");
    UserDefaults defaults{folder.path("settings.json")};
    std::chrono::milliseconds patience = 60s;
    Diary diary;
    CancelFlag cancelled = false;
};

TEST_F(ExportJobTest, TheActionsFollowEachMovieAndClearingEndsTheExport)
{
    add("a.mov");
    add("b.mov");
    tool = scriptedTool(folder, "tool", "echo run >>\"${0%/*}/runs\"; cp \"${0%/*}/picture.jpg\" \"$8\"");
    for (const auto key : {PreferenceKeys::openAfterFinish, PreferenceKeys::revealInFinder,
                           PreferenceKeys::clearAfterFinish, PreferenceKeys::sameAsOrigin}) {
        defaults.setBool(key, true);
    }
    exportAll();
    EXPECT_THAT(diary.entries,
                ElementsAre("movie 0/2 tile 1/1", "written a.jpg", "open a.jpg", "reveal a.jpg", "clear", "end"));
    EXPECT_TRUE(folder.has("a.jpg"));        // beside the movie
    EXPECT_EQ(folder.read("runs"), "run\n"); // nothing for a movie that is not exported
}

TEST_F(ExportJobTest, AnUnwritableFolderAsksAndItsDefaultAnswerSkipsTheMovie)
{
    add("a.mov");
    outputFolder = folder.path("missing");
    defaults.setBool(PreferenceKeys::openAfterFinish, true);
    exportAll();
    diary.alertAnswer = 1; // go on all the same: the write fails, the actions run
    exportAll();
    const std::string alert = "alert Alert!|The output path " + outputFolder.toStdString() +
                              " is not writable,Please set up the priviledge at the Finder|Continue";
    EXPECT_THAT(diary.entries, ElementsAre("movie 0/1 tile 1/1", alert, "failed a.mov", "end", "movie 0/1 tile 1/1",
                                           alert, "failed a.mov", "open a.jpg", "end"));
}

TEST_F(ExportJobTest, MemoryThatRunsOutCostsOneMovie)
{
    add("a.mov");
    add("b.mov");
    diary.onProgress = [](const ExportProgress &at) {
        if (at.movie == 0) {
            throw std::bad_alloc();
        }
    };
    exportAll();
    EXPECT_THAT(diary.entries,
                ElementsAre("movie 0/2 tile 1/1", "failed a.mov", "movie 1/2 tile 1/1", "written b.jpg", "end"));
}

TEST_F(ExportJobTest, CancellingLeavesTheFinishedImagesAndNothingElse)
{
    for (const char *name : {"a.mov", "b.mov", "c.mov"}) {
        add(name, 4);
    }
    diary.onProgress = [this](const ExportProgress &at) { cancelled = at.movie == 1 && at.tile == 3; };
    exportAll();
    EXPECT_EQ(folder.names("out"), QStringList{u"a.jpg"_s});
    EXPECT_EQ(diary.entries.back(), "end");
    EXPECT_EQ(diary.entries.at(diary.entries.size() - 2), "movie 1/3 tile 3/4");
}

TEST_F(ExportJobTest, ANameTakenMeanwhileIsNotOverwritten)
{
    add("a.mov");
    static QString taken;
    taken = folder.path("out/a.jpg");
    // The log line stands between choosing the name and writing: the moment to take it.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
        EXPECT_TRUE(!line.startsWith(u"image write to path") || QFile(taken).open(QIODevice::NewOnly));
    });
    exportAll();
    qInstallMessageHandler(nullptr);
    EXPECT_EQ(QFile(taken).size(), 0);
    EXPECT_THAT(diary.entries, testing::Contains("written a(1).jpg"));
}

TEST_F(ExportJobTest, OneMoviesTroubleStaysItsOwn)
{
    add("huge.mov", 1000, 1e6);
    add("empty.mov", 0);
    add("a.mov", 2);
    tool = scriptedTool(folder, "failing", "exit 1");
    exportAll();
    diary.movies = {diary.movies.at(1)};
    defaults.setInteger(PreferenceKeys::outputFormat, std::ssize(imageFormats)); // there is none of that number
    exportAll();
    EXPECT_THAT(diary.entries, ElementsAre("failed huge.mov", "incomplete empty.jpg", "movie 2/3 tile 1/2",
                                           "movie 2/3 tile 2/2", "incomplete a.jpg", "end", "failed empty.mov", "end"));
}

TEST_F(ExportJobTest, TheToolRunsForTheNextTileWhileOneIsPainted)
{
    add("a.mov", 2);
    // The second run waits until the first one's tile has been shown, and the other way round.
    tool = scriptedTool(folder, "tool",
                        "cd \"${0%/*}\"; [ -e first ] && touch second && read _ <shown; touch first; "
                        "cp picture.jpg \"$8\"");
    ASSERT_EQ(::mkfifo(folder.bytes("shown").constData(), 0600), 0);
    diary.onProgress = [this](const ExportProgress &at) {
        if (at.tile == 1) {
            ASSERT_TRUE(QTest::qWaitFor([this] { return QFile::exists(folder.path("second")); }));
            folder.write("shown", "go\n");
        }
    };
    exportAll();
    EXPECT_THAT(diary.entries, testing::Contains("written a.jpg"));
}

TEST_F(ExportJobTest, TheNextMovieBeginsWhileAnImageIsWritten)
{
    add("a.mov");
    add("b.mov");
    tool = scriptedTool(folder, "tool", "cd \"${0%/*}\"; echo \"$4\" >>runs; cp picture.jpg \"$8\"");
    static std::function<bool()> isSecondRun;
    isSecondRun = [this] { return folder.read("runs").contains("b.mov"); };
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
        if (line.startsWith(u"image write to path") && line.endsWith(u"a.jpg")) {
            EXPECT_TRUE(QTest::qWaitFor(isSecondRun)); // before the first image is written
        }
    });
    exportAll();
    qInstallMessageHandler(nullptr);
    EXPECT_THAT(diary.entries,
                ElementsAre("movie 0/2 tile 1/1", "written a.jpg", "movie 1/2 tile 1/1", "written b.jpg", "end"));
}

TEST_F(ExportJobTest, AToolThatHangsIsTriedOncePerMovie)
{
    add("a.mov", 3);
    add("b.mov", 3);
    tool = scriptedTool(folder, "hanging", "echo run >>\"${0%/*}/runs\"; exec sleep 1000");
    patience = 200ms;
    exportAll();
    EXPECT_EQ(folder.read("runs"), "run\nrun\n");
    EXPECT_THAT(diary.entries, testing::IsSupersetOf({"movie 0/2 tile 3/3", "incomplete a.jpg", "incomplete b.jpg"}));
    EXPECT_TRUE(diary.reasons.value(0).startsWith(u"3 of 3 frames could not be grabbed: ffmpeg was stopped"));
}
