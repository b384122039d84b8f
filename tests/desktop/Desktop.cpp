#include "desktop/Desktop.h"

#include <gtest/gtest.h>

namespace {

QStringList coordinates(QPoint point)
{
    return {QString::number(point.x()), QString::number(point.y())};
}

} // namespace

Desktop::Desktop() : environment(QProcessEnvironment::systemEnvironment())
{
    for (const char *name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_SCALE_FACTOR", "LANGUAGE"}) {
        environment.remove(QString::fromLatin1(name));
    }
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    environment.insert(QStringLiteral("DISPLAY"), screen.display());
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus.address());
    environment.insert(QStringLiteral("HOME"), folder.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.path("config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.path("data"));
    environment.insert(QStringLiteral("XDG_CACHE_HOME"), folder.path("cache"));
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder.makeFolder("run"));
    std::filesystem::permissions(folder.bytes("run").toStdString(), std::filesystem::perms(0700));
}

void Desktop::start(QProcess &program, const QString &path, const QStringList &arguments) const
{
    program.setProcessEnvironment(environment);
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(path, arguments);
    EXPECT_TRUE(program.waitForStarted()) << path.toStdString();
}

QByteArray Desktop::awaitWindow(const QString &title) const
{
    QByteArray window = xdotool({QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--all"),
                                 QStringLiteral("--onlyvisible"), QStringLiteral("--name"), u'^' + title + u'$'});
    xdotool({QStringLiteral("windowactivate"), QStringLiteral("--sync"), QString::fromLatin1(window)});
    return window;
}

void Desktop::moveToCorner(const QByteArray &window) const
{
    xdotool({QStringLiteral("windowmove"), QStringLiteral("--sync"), QString::fromLatin1(window), QStringLiteral("0"),
             QStringLiteral("0")});
}

void Desktop::click(QPoint point) const
{
    movePointer(point);
    xdotool({QStringLiteral("click"), QStringLiteral("1")});
}

void Desktop::pressKey(const QString &keys) const
{
    xdotool({QStringLiteral("key"), keys});
}

void Desktop::pressButton(QPoint point) const
{
    movePointer(point);
    xdotool({QStringLiteral("mousedown"), QStringLiteral("1")});
}

void Desktop::movePointer(QPoint point) const
{
    xdotool(QStringList{QStringLiteral("mousemove")} + coordinates(point));
}

void Desktop::releaseButton() const
{
    xdotool({QStringLiteral("mouseup"), QStringLiteral("1")});
}

void Desktop::grab(const QByteArray &window, const QString &imagePath) const
{
    run(QStringLiteral("ffmpeg"),
        {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-y"), QStringLiteral("-f"),
         QStringLiteral("x11grab"), QStringLiteral("-draw_mouse"), QStringLiteral("0"), QStringLiteral("-window_id"),
         QString::fromLatin1(window), QStringLiteral("-i"), screen.display(), QStringLiteral("-frames:v"),
         QStringLiteral("1"), imagePath});
}

QByteArray Desktop::xdotool(const QStringList &arguments) const
{
    return run(QStringLiteral("xdotool"), arguments);
}

QByteArray Desktop::run(const QString &toolPath, const QStringList &arguments) const
{
    QProcess tool;
    start(tool, toolPath, arguments);
    EXPECT_TRUE(tool.waitForFinished()) << "does not end: " << arguments.join(u' ').toStdString();
    EXPECT_EQ(tool.exitCode(), 0) << arguments.join(u' ').toStdString();
    return tool.readAllStandardOutput().trimmed();
}
