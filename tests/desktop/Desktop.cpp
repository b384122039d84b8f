#include "desktop/Desktop.h"

using namespace Qt::StringLiterals;

Desktop::Desktop()
{
    for (const char *name : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_SCALE_FACTOR", "LANGUAGE"}) {
        environment_.remove(QString::fromLatin1(name));
    }
    folder.makeFolder("run");
    folder.setMode(0700, "run");
    const std::pair<const char *, QString> variables[] = {
        {"QT_QPA_PLATFORM", u"xcb"_s},
        {"LC_ALL", u"C.UTF-8"_s},
        {"DISPLAY", screen_.display()},
        {"DBUS_SESSION_BUS_ADDRESS", bus.address()},
        {"HOME", folder.path()},
        {"XDG_CONFIG_HOME", folder.path("config")},
        {"XDG_DATA_HOME", folder.path("data")},
        {"XDG_CACHE_HOME", folder.path("cache")},
        {"XDG_RUNTIME_DIR", folder.path("run")},
    };
    for (const auto &[name, value] : variables) {
        setVariable(QString::fromLatin1(name), value);
    }
}

void Desktop::start(QProcess &program, const QString &path, const QStringList &arguments) const
{
    program.setProcessEnvironment(environment_);
    program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program.start(path, arguments);
    EXPECT_TRUE(program.waitForStarted()) << path.toStdString();
}

QString Desktop::awaitWindow(const QString &title) const
{
    const QStringList search = {u"search"_s,        u"--sync"_s, u"--all"_s,
                                u"--onlyvisible"_s, u"--name"_s, u'^' + title + u'$'};
    QString window;
    for (int attempt = 0; window.isEmpty() && attempt < 3; ++attempt) {
        window = run(u"xdotool"_s, search, true); // it fails when any window goes as it looks
    }
    xdotool({u"windowactivate"_s, u"--sync"_s, window});
    return window;
}

void Desktop::movePointer(QPoint point) const
{
    xdotool({u"mousemove"_s, QString::number(point.x()), QString::number(point.y())});
}

void Desktop::click(QPoint point) const
{
    movePointer(point);
    xdotool({u"click"_s, u"1"_s});
}

void Desktop::grab(const QString &window, const QString &imagePath) const
{
    const QString options = u"-v error -y -f x11grab -draw_mouse 0 -window_id %1 -i %2 -frames:v 1"_s;
    run(u"ffmpeg"_s, options.arg(window, screen_.display()).split(u' ') + QStringList(imagePath));
}

QString Desktop::run(const QString &tool, const QStringList &arguments, bool mayFail) const
{
    QProcess program;
    start(program, tool, arguments);
    const bool succeeds = program.waitForFinished() && program.exitCode() == 0;
    EXPECT_TRUE(succeeds || mayFail) << arguments.join(u' ').toStdString();
    return succeeds ? QString::fromLatin1(program.readAllStandardOutput().trimmed()) : QString();
}
