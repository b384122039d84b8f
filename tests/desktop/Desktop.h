#pragma once

#include "desktop/XServer.h"
#include "support/FakeService.h"
#include "support/ScratchFolder.h"

#include <QDBusVariant>
#include <QPoint>
#include <QProcess>

/// A small desktop for one test: an X server, a bus, an empty home, a pointer and a keyboard, all apart from the real
/// ones.
class Desktop {
public:
    Desktop();

    /// A variable of the environment that programs start in from now on.
    void setVariable(const QString &name, const QString &value) { environment_.insert(name, value); }
    /// Starts the program as a desktop would; its errors go to the test's.
    void start(QProcess &program, const QString &path, const QStringList &arguments) const;

    /// Waits until a window of this title is there and in front; gives its number.
    QString awaitWindow(const QString &title) const;
    /// Has xdotool move the pointer, type and so on, and gives what it says.
    QString xdotool(const QStringList &arguments) const { return run(QStringLiteral("xdotool"), arguments); }
    void movePointer(QPoint point) const;
    void click(QPoint point) const;
    /// Writes what the window shows into an image file.
    void grab(const QString &window, const QString &imagePath) const;

    const SessionBus bus;
    const ScratchFolder folder; ///< with the homes of settings and data in it

private:
    /// What the tool says; nothing when it fails.
    QString run(const QString &tool, const QStringList &arguments, bool mayFail = false) const;

    /// Tells programs that a screen reader listens on the session bus, so that they describe themselves there.
    const FakeService accessibility_{bus,
                                     "org.a11y.Bus",
                                     "/org/a11y/bus",
                                     {{QStringLiteral("GetAddress"), bus.address()},
                                      {QStringLiteral("Get"), QVariant::fromValue(QDBusVariant(true))}}};
    const XServer screen_;
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
};
