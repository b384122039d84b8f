// The real program in a process of its own, with tools that misbehave.

#include "platform/files/FileDescriptor.h"
#include "platform/store/UserDefaults.h"
#include "support/HttpServer.h"
#include "support/ScriptedTool.h"

#include <QFile>
#include <QProcess>
#include <QTest>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <functional>

using namespace Qt::StringLiterals;

struct CommandLineTest : testing::Test {
    CommandLineTest()
    {
        for (const char *name : {"bin", "tmp", "config", "out"}) {
            folder.makeFolder(name);
        }
        // The tool lies beside the program, so a program with another tool is a copy of it.
        QFile::copy(QStringLiteral(TESSARINE_EXECUTABLE), folder.path("bin/tessarine"));
        folder.link(TESSARINE_FFMPEG, "bin/ffmpeg");
        environment.insert(u"TMPDIR"_s, folder.path("tmp"));
        environment.insert(u"XDG_CONFIG_HOME"_s, folder.path("config"));
        for (const char *name : {"QT_LOGGING_RULES", "LANG", "LC_ALL", "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM",
                                 "XDG_RUNTIME_DIR"}) {
            environment.remove(QString::fromLatin1(name));
        }
    }
    void useTool(const char *script)
    {
        QFile::remove(folder.path("bin/ffmpeg"));
        if (script != nullptr) {
            scriptedTool(folder, "bin/ffmpeg", script);
        }
    }
    void start(const QStringList &arguments, const QString &name = u"bin/tessarine"_s)
    {
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(folder.path());
        program.start(name, arguments);
        ASSERT_TRUE(program.waitForStarted());
    }
    void startExportAndAwait(const char *name)
    {
        start(exportMovie);
        while (!folder.has(name) && program.state() == QProcess::Running) {
            program.waitForReadyRead(10);
        }
    }
    int finish()
    {
        EXPECT_TRUE(program.waitForFinished(240'000));
        output = program.readAllStandardOutput();
        errors = program.readAllStandardError();
        return program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1;
    }
    int run(const QStringList &arguments)
    {
        start(arguments);
        return finish();
    }

    ScratchFolder folder;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString movie = QStringLiteral(TESSARINE_TEST_MOVIES "/clock.mp4");
    const QStringList exportMovie{u"--export"_s, u"-q"_s, movie, u"-oout"_s};
    QProcess program;
    QByteArray output;
    QByteArray errors;
};

TEST_F(CommandLineTest, StreamsAndStatusWithoutLocaleAndDisplay)
{
    folder.link(movie.toUtf8(), "a\nmovie.mp4");
    EXPECT_EQ(run({u"--export"_s, u"./a\nmovie.mp4"_s, u"-o"_s, u"./out"_s}), 0);
    EXPECT_EQ(output, folder.bytes("out/a\nmovie.jpg") + '\n');
    EXPECT_EQ(errors, "movie 1 of 1: a\xEF\xBF\xBDmovie.mp4\n");
    EXPECT_TRUE(folder.names("tmp").isEmpty());
    EXPECT_TRUE(folder.names("config").isEmpty()); // an export stores nothing
    const std::tuple<QString, int, QByteArray *, const char *> cases[] = {
        {u"--help"_s, 0, &output, "--tile-width"},
        {u"--export"_s, 2, &errors, "tessarine --help"},
        {u"--bad"_s, 2, &errors, "tessarine --help"},
        {u"a.mp4"_s, 1, &errors, "no display"}};
    for (const auto &[option, status, stream, text] : cases) {
        EXPECT_EQ(run({option}), status);
        EXPECT_TRUE(stream->contains(text)) << stream->constData();
    }
}

TEST_F(CommandLineTest, ToolsThatFailLeaveTilesEmptyAndSaySo)
{
    for (const char *script : {"exit 3", "kill -SEGV $$", "echo garbage >\"$8\"", "head -c 20000000 /dev/zero",
                               static_cast<const char *>(nullptr)}) {
        useTool(script);
        EXPECT_EQ(run(exportMovie), 1);
        EXPECT_TRUE(output.startsWith(folder.bytes("out/clock")));
        EXPECT_TRUE(errors.contains(": 6 of 6 frames could not be grabbed: ")) << (script ? script : "missing");
        EXPECT_EQ(errors.contains(QByteArray("missing, expected at " + folder.bytes("bin/ffmpeg"))), script == nullptr);
        EXPECT_TRUE(folder.names("tmp").isEmpty());
    }
}

TEST_F(CommandLineTest, AnInterruptStopsAHangingToolAndLeavesNothing)
{
    // The tool tells its process by a file, then ignores polite requests.
    useTool("trap '' TERM; cd \"$TMPDIR/..\"; echo $$ >pid.new; mv pid.new pid; while :; do sleep 1; done");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        QFile::remove(folder.path("pid"));
        startExportAndAwait("pid");
        const pid_t tool = folder.read("pid").trimmed().toInt();
        kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_EQ(finish(), 130) << signal;
        EXPECT_NE(kill(tool, 0), 0) << "the tool is still there";
        EXPECT_TRUE(folder.names("out").isEmpty());
        EXPECT_TRUE(folder.names("tmp").isEmpty());
    }
}

TEST_F(CommandLineTest, AnInterruptEndsACallThatBlocks)
{
    // A pipe that nobody empties stands for all that a system call may wait for.
    ASSERT_EQ(::mkfifo(folder.bytes("full").constData(), 0600), 0);
    const FileDescriptor pipe(::open(folder.bytes("full").constData(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    while (::write(pipe.get(), "full", 4) > 0) {
    }
    program.setStandardOutputFile(folder.path("full"));
    startExportAndAwait("out/clock.jpg");
    kill(static_cast<pid_t>(program.processId()), SIGTERM);
    EXPECT_EQ(finish(), 130);
}

TEST_F(CommandLineTest, PaintingStartsNoThreadAndLoadsNoFilters)
{
    useTool("grep libavfilter /proc/$PPID/maps >>filters; ls /proc/$PPID/task | wc -l >>threads; exec " TESSARINE_FFMPEG
            " -v error \"$@\"");
    EXPECT_EQ(run(exportMovie + QStringList{u"--tile-width"_s, u"2000"_s, u"--set"_s, u"DefaultDrawShadow=true"_s}), 0);
    const QByteArrayList counts = folder.read("threads").trimmed().split('\n');
    ASSERT_EQ(counts.size(), 6);
    EXPECT_TRUE(std::ranges::is_sorted(counts, std::greater{})) << "at first one may still load what comes later";
    EXPECT_EQ(folder.read("filters"), QByteArray());
}

TEST_F(CommandLineTest, ResultsThatNobodyCanReadDoNotStopTheExport)
{
    program.setStandardOutputFile(u"/dev/full"_s);
    EXPECT_EQ(run(exportMovie + QStringList{movie}), 1);
    EXPECT_EQ(folder.names("out").size(), 2);
    EXPECT_EQ(run({u"--help"_s}), 1);
}

TEST_F(CommandLineTest, ATerminalGetsABarThatFitsAndGoesAway)
{
    if (!QFile::exists(u"/dev/pts/ptmx"_s)) {
        GTEST_SKIP() << "there are no pseudo-terminals here";
    }
    folder.link(movie.toUtf8(), "new\nline.mp4");
    const QString command = u"stty cols 40; bin/tessarine --export -oout 'new\nline.mp4'"_s;
    start({u"-qec"_s, command, u"/dev/null"_s}, u"script"_s);
    EXPECT_EQ(finish(), 0);
    EXPECT_TRUE(output.contains("\r[####....................] movie 1 of 1\x1b[K")) << output.constData();
    const QByteArray result = "\r\x1b[K$'" + folder.bytes("out/new") + "\\x0aline.jpg'\r\n";
    EXPECT_TRUE(output.endsWith(result)) << output.constData();
}

TEST_F(CommandLineTest, AWindowTellsTheServiceOfItsStartAnExportDoesNot)
{
    const HttpServer server(HttpServer::silent); // which keeps neither the launch nor the end waiting
    environment.insert(u"TESSARINE_SERVICE_URL"_s, server.url());
    environment.insert(u"HOME"_s, folder.path());
    environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s);
    folder.write("Documents/crash.info", "a report that cannot be read");
    EXPECT_EQ(run(exportMovie), 0);
    EXPECT_TRUE(folder.has("Documents/crash.info"));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    start({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests.size() == 2; }, 60'000));
    program.terminate();
    EXPECT_EQ(finish(), 0);
    EXPECT_FALSE(folder.has("Documents/crash.info"));
    const UserDefaults stored(folder.path("config/Tessarine/settings.json"));
    const QByteArray identifier = stored.textValue(u"guid").toUtf8();
    EXPECT_EQ(identifier.size(), 36);
    EXPECT_TRUE(server.requests.join().contains(QByteArray("&channelid=5&userid=" + identifier + " HTTP")));
}
