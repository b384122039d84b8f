#include "desktop/Desktop.h"
#include "desktop/ScreenReader.h"
#include "movies/ColorClock.h"
#include "platform/files/FileUri.h"

#include <QDeadlineTimer>
#include <QImage>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

/// The real program, used by pointer, keyboard and the desktop's own ways.
struct JourneyTest : testing::Test {
    JourneyTest()
    {
        desktop.folder.makeFolder("out");
        desktop.folder.write("config/Tessarine/settings.json",
                             "{\"OutputFolderKey\":\"" + desktop.folder.bytes("out") + "\"}");
    }
    ~JourneyTest() override
    {
        for (QProcess *running : {&program, &files}) {
            running->kill();
            running->waitForFinished();
        }
    }
    QString movie(const QByteArray &name) const
    {
        std::filesystem::copy_file(TESSARINE_TEST_MOVIES "/clock.mp4", desktop.folder.bytes(name).toStdString());
        return desktop.folder.path(name);
    }
    /// Starts the program and waits until its window can be used.
    void start(const QStringList &arguments = {})
    {
        desktop.start(program, QStringLiteral(TESSARINE_EXECUTABLE), arguments);
        const QString window = desktop.awaitWindow(u"Tessarine"_s);
        desktop.xdotool({u"windowmove"_s, u"--sync"_s, window, u"0"_s, u"0"_s});
        reader = std::make_unique<ScreenReader>(desktop.bus.connect(), program.processId());
    }
    /// Runs it while another one may be running; gives its exit status.
    int runOther(const QStringList &arguments) const
    {
        QProcess other;
        desktop.start(other, QStringLiteral(TESSARINE_EXECUTABLE), arguments);
        return statusOf(other);
    }
    static int statusOf(QProcess &ending)
    {
        EXPECT_TRUE(ending.waitForFinished()) << "still running";
        return ending.exitStatus() == QProcess::NormalExit ? ending.exitCode() : -1;
    }
    QPoint place(const QString &role, const QString &name) const
    {
        return reader->await(role, name).rectangle.center();
    }
    /// Drags a file from another program to the point, and lets go there when it is welcome.
    void drag(const QString &path, QPoint point)
    {
        desktop.start(files, QStringLiteral(TESSARINE_DRAG_WINDOW), {QString::fromLatin1(FileUri::fromPath(path))});
        desktop.awaitWindow(u"Files"_s);
        desktop.movePointer({1400, 850});
        desktop.xdotool({u"mousedown"_s, u"1"_s});
        for (const QPoint way : {QPoint(1420, 870), point - QPoint(5, 5), point}) {
            desktop.movePointer(way);
        }
        EXPECT_EQ(nextLine(files), "accepted");
        desktop.xdotool({u"mouseup"_s, u"1"_s});
        EXPECT_EQ(nextLine(files), "given");
    }
    /// Waits until the movie is in the list and no job is running: jobs cover the window with a sheet. Where it is.
    QPoint awaitMovie(const QString &name) const
    {
        const auto row = reader->await([&](const ScreenReader::Object &object) {
            return object.role.endsWith(u"cell") && object.name.contains(name); // the sheet names it, too
        });
        reader->awaitNone(u"dialog"_s);
        return row.rectangle.center();
    }
    void exportAll(const QByteArray &image)
    {
        desktop.click(place(u"push button"_s, u"Start"_s));
        while (!desktop.folder.has(image) && program.state() == QProcess::Running) {
            program.waitForFinished(20);
        }
    }

    const Desktop desktop;
    QProcess program;
    QProcess files; ///< that other program: it must stay, for what is dropped is fetched from it
    std::unique_ptr<ScreenReader> reader;
};

TEST_F(JourneyTest, AMovieDraggedOnTheWindowBecomesTheCollageThatTheCommandLineMakes)
{
    const QString path = movie("holiday \xE2\x9D\xA4.mp4");
    start();
    drag(path, place(u"table"_s, u"Movies"_s));
    awaitMovie(u"holiday \u2764"_s);
    const QByteArray collage = "out/holiday \xE2\x9D\xA4.jpg";
    exportAll(collage);
    awaitMovie(u"holiday \u2764"_s);
    EXPECT_EQ(runOther({u"--export"_s, u"-q"_s, path}), 0);
    EXPECT_GT(desktop.folder.read(collage).size(), 10'000);
    EXPECT_EQ(desktop.folder.read(collage), desktop.folder.read("out/holiday \xE2\x9D\xA4(1).jpg"));
    EXPECT_EQ(runOther({movie("later.mp4")}), 0) << "hands it over";
    awaitMovie(u"later.mp4"_s);
    EXPECT_EQ(runOther({}), 0) << "only brings the window forward";
    for (const int signal : {SIGTERM, SIGINT}) {
        kill(static_cast<pid_t>(program.processId()), signal); // the second comes while it quits
    }
    EXPECT_EQ(statusOf(program), 0);
}

TEST_F(JourneyTest, TheEditorsRangeAndGridAreThoseOfTheImage)
{
    start({movie("clock.mp4")});
    desktop.click(awaitMovie(u"clock.mp4"_s));
    desktop.xdotool({u"key"_s, u"Return"_s});
    desktop.awaitWindow(u"Custom Collage"_s);
    const QPoint handle = place(u"slider"_s, u"End handle"_s);
    desktop.movePointer(handle);
    desktop.xdotool({u"mousedown"_s, u"1"_s});
    desktop.movePointer({0, handle.y()}); // as far as it goes: five seconds after the start
    desktop.xdotool({u"mouseup"_s, u"1"_s});
    desktop.click(place(u"text"_s, u"Rows"_s));
    desktop.xdotool({u"key"_s, u"ctrl+a"_s, u"1"_s, u"Tab"_s, u"4"_s, u"Return"_s, u"Return"_s});
    reader->awaitNone(u"dialog"_s);
    exportAll("out/clock.jpg");
    const QImage collage(desktop.folder.path("out/clock.jpg"));
    ASSERT_EQ(collage.width(), 4 * 300 + 3 * 4 + 2 * 20);
    const std::vector seconds{2, 3, 5, 7}; // of the tiles, from 2.0 to 7.0
    for (int column = 0; column < 4; ++column) {
        const QColor pixel = collage.pixelColor(20 + column * 304 + 150, collage.height() - 20 - 112);
        EXPECT_EQ(ColorClock::secondOfColor(pixel), seconds.at(std::size_t(column)));
    }
}

TEST_F(JourneyTest, RowsAreDraggedToAnotherPlaceAndBackByUndo)
{
    start({movie("below.mp4"), movie("above.mp4")});
    const QPoint below = awaitMovie(u"below.mp4"_s);
    const QPoint above = awaitMovie(u"above.mp4"_s);
    ASSERT_LT(above.y(), below.y());
    const auto awaitOnTop = [&](const QString &name) {
        reader->await([&](const ScreenReader::Object &object) {
            return object.name.contains(name) && object.rectangle.center().y() == above.y();
        });
    };
    desktop.movePointer(below);
    desktop.xdotool({u"mousedown"_s, u"1"_s});
    for (const int y : {below.y() - 15, above.y() - 10, above.y() - 20}) {
        desktop.movePointer({below.x(), y});
    }
    desktop.xdotool({u"mouseup"_s, u"1"_s});
    awaitOnTop(u"below.mp4"_s);
    desktop.xdotool({u"key"_s, u"ctrl+z"_s});
    awaitOnTop(u"above.mp4"_s);
}

TEST_F(JourneyTest, AClickOnTheWindowBelowLeavesTheKeyboardToTheSheet)
{
    start({movie("clock.mp4")});
    const QPoint row = awaitMovie(u"clock.mp4"_s);
    desktop.click(row);
    desktop.xdotool({u"key"_s, u"Return"_s});
    const QString sheet = desktop.awaitWindow(u"Custom Collage"_s);
    desktop.xdotool({u"windowmove"_s, u"--sync"_s, sheet, u"1200"_s, u"0"_s}); // off the window below
    desktop.click(row);
    // Again and again: a key may come before the window manager and the program have settled whose it is.
    const QDeadlineTimer deadline(30'000);
    while (reader->has(u"dialog"_s) && !deadline.hasExpired()) {
        desktop.xdotool({u"key"_s, u"Escape"_s});
    }
    EXPECT_FALSE(reader->has(u"dialog"_s)) << "the sheet does not hear the key that closes it";
}
