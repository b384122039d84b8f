#include "render/ExportJob.h"

#include "Shared/FrameGrabber.h"
#include "collage/KTMovieObject.h"
#include "platform/AlertPanel.h"
#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "render/ExportObserver.h"
#include "render/MovieSource.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <vector>

using testing::ElementsAre;

namespace {

/// Keeps a diary of an export: everything it calls, in order.
class Diary final : public MovieSource, public AlertPanel, public Workspace, public ExportObserver {
public:
    std::vector<std::shared_ptr<KTMovieObject>> movies;
    std::vector<std::string> entries;
    int alertAnswer = 0;
    std::function<void(const ExportProgress &)> onProgress = [](const ExportProgress &) {};

    int count() override { return static_cast<int>(movies.size()); }
    std::shared_ptr<KTMovieObject> movieAt(int index) override { return movies.at(static_cast<std::size_t>(index)); }
    void removeAll() override
    {
        movies.clear();
        write(QStringLiteral("clear"));
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
        write(QStringLiteral("movie %1/%2 tile %3/%4")
                  .arg(progress.movie)
                  .arg(progress.movieCount)
                  .arg(progress.tile)
                  .arg(progress.tileCount));
        onProgress(progress);
    }
    void imageWritten(const QString & /*movie*/, const QString &path) override { write(u"written " + name(path)); }
    void movieFailed(const QString &movie, const QString & /*reason*/) override { write(u"failed " + name(movie)); }
    void framesMissing(const QString & /*movie*/, std::int64_t missing, std::int64_t count) override
    {
        write(QStringLiteral("missing %1 of %2").arg(missing).arg(count));
    }
    void exportEnded() override { write(QStringLiteral("end")); }

private:
    template<typename Text>
    void write(const Text &text)
    {
        entries.push_back(QString(text).toStdString());
    }
    static QString name(const QString &path) { return path.section(u'/', -1); }
};

class ExportJobTest : public testing::Test {
protected:
    ExportJobTest()
    {
        // The tool copies one picture, whatever it is asked for.
        QImage picture(32, 24, QImage::Format_RGB32);
        picture.fill(Qt::red);
        picture.save(path(QStringLiteral("picture.jpg")));
        writeTool("cp \"$(dirname \"$0\")/picture.jpg\" \"$8\"");
        QDir(folder.path()).mkpath(QStringLiteral("out"));
    }

    QString path(const QString &name) const { return folder.filePath(name); }

    void writeTool(const QByteArray &command)
    {
        QFile tool(path(QStringLiteral("tool")));
        ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n" + command + "\n");
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    std::shared_ptr<KTMovieObject> add(const QString &name, std::int32_t rows = 1, std::int32_t columns = 2)
    {
        auto movie = std::make_shared<KTMovieObject>();
        movie->filePath = path(name);
        CollageSettings settings;
        settings.rowNumber = rows;
        settings.columeNumber = columns;
        settings.gridWidth = 32.0;
        settings.gridHeight = 24.0;
        movie->setSettings(settings);
        diary.movies.push_back(movie);
        return movie;
    }

    void exportAll()
    {
        FrameGrabber grabber(path(QStringLiteral("tool")), folder.path());
        ExportJob job({diary, grabber, defaults, diary, diary, diary, [this] { return outputFolder; }, cancelled});
        job.run();
        job.run(); // a second time does nothing
        EXPECT_EQ(job.state(), ExportJob::State::Finished);
    }

    QStringList images() const { return QDir(outputFolder).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    QTemporaryDir folder;
    QString outputFolder = folder.filePath(QStringLiteral("out"));
    UserDefaults defaults{folder.filePath(QStringLiteral("store.ini"))};
    Diary diary;
    CancelFlag cancelled = false;
};

TEST_F(ExportJobTest, EachMovieIsWrittenBeforeTheNextBegins)
{
    add(QStringLiteral("a.mov"));
    add(QStringLiteral("a.mp4"));
    exportAll();
    EXPECT_THAT(diary.entries, ElementsAre("movie 0/2 tile 1/2", "movie 0/2 tile 2/2", "written a.jpg",
                                           "movie 1/2 tile 1/2", "movie 1/2 tile 2/2", "written a(1).jpg", "end"));
    EXPECT_EQ(images(), (QStringList{QStringLiteral("a(1).jpg"), QStringLiteral("a.jpg")}));
    const QImage image(outputFolder + QStringLiteral("/a.jpg"));
    EXPECT_EQ(image.size(), QSize(2 * 32 + 4 + 40, 24 + 40));
    EXPECT_GT(qRed(image.pixel(36, 32)), 240);
}

TEST_F(ExportJobTest, TheFormatKeyChoosesExtensionAndEncoder)
{
    struct Case {
        int key;
        const char *image;
        const char *magic;
    };
    for (const Case &format : {Case{0, "a.jpg", "\xff\xd8"}, Case{1, "a.png", "\x89PNG"}, Case{2, "a.bmp", "BM"},
                               Case{3, "a.tiff", "II*"}}) {
        diary.movies.clear();
        add(QStringLiteral("a.mov"));
        defaults.setInteger(PreferenceKeys::outputFormat, format.key);
        exportAll();
        QFile file(outputFolder + u'/' + QString::fromLatin1(format.image));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << format.image;
        EXPECT_TRUE(file.readAll().startsWith(format.magic)) << format.image;
    }
    diary.entries.clear();
    defaults.setInteger(PreferenceKeys::outputFormat, 7);
    exportAll();
    EXPECT_THAT(diary.entries, testing::Contains("failed a.mov"));
    EXPECT_EQ(images().size(), 4);
}

TEST_F(ExportJobTest, TheActionsFollowEachMovieAndClearingEndsTheExport)
{
    add(QStringLiteral("a.mov"), 1, 1);
    add(QStringLiteral("b.mov"), 1, 1);
    defaults.setBool(PreferenceKeys::openAfterFinish, true);
    defaults.setBool(PreferenceKeys::revealInFinder, true);
    defaults.setBool(PreferenceKeys::clearAfterFinish, true);
    exportAll();
    EXPECT_THAT(diary.entries,
                ElementsAre("movie 0/2 tile 1/1", "written a.jpg", "open a.jpg", "reveal a.jpg", "clear", "end"));
}

TEST_F(ExportJobTest, AnUnwritableFolderAsksAndItsDefaultAnswerSkipsTheMovie)
{
    add(QStringLiteral("a.mov"), 1, 1);
    add(QStringLiteral("b.mov"), 1, 1);
    outputFolder = path(QStringLiteral("missing"));
    defaults.setBool(PreferenceKeys::openAfterFinish, true);
    exportAll();
    const std::string alert = "alert Alert!|The output path " + outputFolder.toStdString() +
                              " is not writable,Please set up the priviledge at the Finder|Continue";
    EXPECT_THAT(diary.entries, ElementsAre("movie 0/2 tile 1/1", alert, "movie 1/2 tile 1/1", alert, "end"));

    diary.entries.clear();
    diary.movies.pop_back();
    diary.alertAnswer = 1; // go on all the same: the write fails, the actions run
    exportAll();
    EXPECT_THAT(diary.entries, ElementsAre("movie 0/1 tile 1/1", alert, "failed a.mov", "open a.jpg", "end"));
}

TEST_F(ExportJobTest, BesideTheMovieMeansItsOwnFolder)
{
    add(QStringLiteral("a.mov"), 1, 1);
    defaults.setBool(PreferenceKeys::sameAsOrigin, true);
    exportAll();
    EXPECT_TRUE(QFile::exists(path(QStringLiteral("a.jpg"))));
    EXPECT_TRUE(images().isEmpty());
}

TEST_F(ExportJobTest, CancellingLeavesTheFinishedImagesAndNothingElse)
{
    add(QStringLiteral("a.mov"), 1, 4);
    add(QStringLiteral("b.mov"), 1, 4);
    add(QStringLiteral("c.mov"), 1, 4);
    diary.onProgress = [this](const ExportProgress &progress) {
        cancelled = progress.movie == 1 && progress.tile == 3;
    };
    exportAll();
    EXPECT_EQ(images(), QStringList{QStringLiteral("a.jpg")});
    EXPECT_EQ(diary.entries.back(), "end");
    EXPECT_EQ(diary.entries.at(diary.entries.size() - 2), "movie 1/3 tile 3/4");
}

TEST_F(ExportJobTest, ANameTakenMeanwhileIsNotOverwritten)
{
    add(QStringLiteral("a.mov"), 1, 1);
    static QString taken;
    taken = outputFolder + QStringLiteral("/a.jpg");
    // The log line stands between choosing the name and writing: the moment to take it.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) {
        if (line.startsWith(QStringLiteral("image write to path"))) {
            QFile file(taken);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::NewOnly));
        }
    });
    exportAll();
    qInstallMessageHandler(nullptr);
    EXPECT_EQ(QFile(taken).size(), 0);
    EXPECT_THAT(diary.entries, testing::Contains("written a(1).jpg"));
}

TEST_F(ExportJobTest, ImpossibleSettingsFailThatMovieOnly)
{
    CollageSettings huge = add(QStringLiteral("huge.mov"))->settings();
    huge.gridWidth = 1e6;
    huge.rowNumber = huge.columeNumber = 1000;
    diary.movies.back()->setSettings(huge);
    add(QStringLiteral("empty.mov"), 0, 0);
    exportAll();
    EXPECT_THAT(diary.entries, ElementsAre("failed huge.mov", "written empty.jpg", "end"));
}

TEST_F(ExportJobTest, TilesWithoutANewFrameAreCounted)
{
    add(QStringLiteral("a.mov"), 1, 2);
    writeTool("exit 1");
    exportAll();
    EXPECT_THAT(diary.entries,
                ElementsAre("movie 0/1 tile 1/2", "movie 0/1 tile 2/2", "missing 2 of 2", "written a.jpg", "end"));
}

} // namespace
