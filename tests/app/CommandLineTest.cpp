// The real program in a process of its own, with tools that misbehave.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>

namespace {

class CommandLineTest : public testing::Test {
protected:
    CommandLineTest()
    {
        for (const char *name : {"bin", "tmp", "config", "out"}) {
            QDir(folder.path()).mkpath(QString::fromLatin1(name));
        }
        // The tool lies beside the program, so a program with another tool is a copy of it.
        QFile::copy(QStringLiteral(TESSARINE_EXECUTABLE), path("bin/tessarine"));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TMPDIR"), path("tmp"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path("config"));
        environment.remove(QStringLiteral("QT_LOGGING_RULES"));
        program.setProcessEnvironment(environment);
        program.setWorkingDirectory(folder.path());
    }

    QString path(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }
    static QString movie() { return QStringLiteral(TESSARINE_TEST_MOVIES "/clock.mp4"); }

    void useTool(const QByteArray &script)
    {
        QFile tool(path("bin/ffmpeg"));
        ASSERT_TRUE(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\n" + script + "\n");
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    void useRealTool() { QFile::link(QStringLiteral(TESSARINE_FFMPEG), path("bin/ffmpeg")); }

    void start(const QStringList &arguments)
    {
        program.start(path("bin/tessarine"), arguments);
        ASSERT_TRUE(program.waitForStarted());
    }

    int finish()
    {
        EXPECT_TRUE(program.waitForFinished(60'000));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        output = program.readAllStandardOutput();
        errors = program.readAllStandardError();
        return program.exitCode();
    }

    int run(const QStringList &arguments)
    {
        start(arguments);
        return finish();
    }

    bool isEmpty(const char *name) const
    {
        return QDir(path(name)).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QTemporaryDir folder;
    QProcess program;
    QByteArray output;
    QByteArray errors;
};

TEST_F(CommandLineTest, StreamsAndStatusOfAGoodRun)
{
    useRealTool();
    QFile::copy(movie(), path("a movie.mp4"));
    EXPECT_EQ(run({QStringLiteral("--export"), QStringLiteral("./a movie.mp4"), QStringLiteral("-o"),
                   QStringLiteral("./out")}),
              0);
    EXPECT_EQ(output, path("out/a movie.jpg").toUtf8() + '\n');
    EXPECT_EQ(errors, "movie 1 of 1: a movie.mp4\n");
    EXPECT_TRUE(isEmpty("tmp"));
    EXPECT_TRUE(isEmpty("config")); // an export stores nothing

    EXPECT_EQ(run({QStringLiteral("--help")}), 0);
    EXPECT_TRUE(output.contains("--tile-width"));
    EXPECT_EQ(run({QStringLiteral("--version")}), 0);
    EXPECT_TRUE(output.startsWith("Tessarine "));
    EXPECT_EQ(run({QStringLiteral("--export")}), 2);
    EXPECT_EQ(output, "");
    EXPECT_TRUE(errors.contains("tessarine --help"));
}

TEST_F(CommandLineTest, WithoutALocaleStandardErrorStaysClean)
{
    useRealTool();
    QProcessEnvironment environment = program.processEnvironment();
    for (const char *name : {"LANG", "LC_ALL", "LC_CTYPE", "DISPLAY", "XDG_RUNTIME_DIR"}) {
        environment.remove(QString::fromLatin1(name));
    }
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    program.setProcessEnvironment(environment);
    EXPECT_EQ(run({QStringLiteral("--export"), QStringLiteral("-q"), movie(), QStringLiteral("-o"), path("out")}), 0);
    EXPECT_EQ(errors, "");
}

TEST_F(CommandLineTest, ToolsThatFailLeaveTilesEmptyAndSaySo)
{
    struct Case {
        const char *what;
        const char *script;
    };
    for (const Case &tool :
         {Case{"missing", nullptr}, Case{"fails", "exit 3"}, Case{"crashes", "kill -SEGV $$"},
          Case{"writes no picture", "echo garbage >\"$8\""}, Case{"floods", "head -c 20000000 /dev/zero; exit 0"}}) {
        QFile::remove(path("bin/ffmpeg"));
        if (tool.script != nullptr) {
            useTool(tool.script);
        }
        EXPECT_EQ(run({QStringLiteral("--export"), QStringLiteral("-q"), movie(), QStringLiteral("-o"), path("out")}),
                  0)
            << tool.what;
        EXPECT_TRUE(output.startsWith(path("out/clock").toUtf8())) << tool.what;
        EXPECT_TRUE(errors.contains("6 of 6 frames could not be grabbed") || tool.script == nullptr)
            << tool.what << errors.constData();
        EXPECT_EQ(errors.contains(QByteArray("ffmpeg is missing, expected at " + path("bin/ffmpeg").toUtf8())),
                  tool.script == nullptr)
            << tool.what << errors.constData();
        EXPECT_TRUE(isEmpty("tmp")) << tool.what;
    }
}

TEST_F(CommandLineTest, AnInterruptStopsAHangingToolAndLeavesNothing)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        // The tool tells its process by the file, then ignores polite requests.
        useTool("trap '' TERM; echo $$ >\"$TMPDIR/../pid.new\"; mv \"$TMPDIR/../pid.new\" \"$TMPDIR/../pid\"; while :; "
                "do sleep 1; done");
        QFile::remove(path("pid"));
        start({QStringLiteral("--export"), movie(), QStringLiteral("-o"), path("out")});
        while (!QFile::exists(path("pid")) && program.state() == QProcess::Running) {
            program.waitForReadyRead(10);
        }
        QFile pidFile(path("pid"));
        ASSERT_TRUE(pidFile.open(QIODevice::ReadOnly));
        const pid_t tool = pidFile.readAll().trimmed().toInt();
        kill(static_cast<pid_t>(program.processId()), signal);
        EXPECT_EQ(finish(), 130) << signal;
        EXPECT_NE(kill(tool, 0), 0) << "the tool is still there";
        EXPECT_TRUE(isEmpty("out"));
        EXPECT_TRUE(isEmpty("tmp"));
    }
}

TEST_F(CommandLineTest, AReaderThatGoesAwayDoesNotStopTheExport)
{
    useRealTool();
    program.setStandardOutputFile(QStringLiteral("/dev/full"));
    EXPECT_EQ(
        run({QStringLiteral("--export"), QStringLiteral("-q"), movie(), movie(), QStringLiteral("-o"), path("out")}),
        0);
    EXPECT_EQ(QDir(path("out")).entryList(QDir::Files).size(), 2);
}

} // namespace
