#pragma once

#include "desktop/AccessibilityBus.h"
#include "desktop/XServer.h"
#include "support/ScratchFolder.h"
#include "support/SessionBus.h"

#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

/// A small desktop of a test's own: windows, a bus, an empty home, a pointer and a keyboard. Nothing on it reaches the
/// real one.
class Desktop {
public:
    Desktop();

    /// A variable of the environment that programs start in from now on.
    void setVariable(const QString &name, const QString &value) { environment.insert(name, value); }
    /// Starts the program as a desktop would; its errors go to the test's.
    void start(QProcess &program, const QString &path, const QStringList &arguments) const;

    /// Waits until a window of this title is there and in front; gives its number.
    QByteArray awaitWindow(const QString &title) const;
    /// Puts the window's frame into the upper left corner of the screen.
    void moveToCorner(const QByteArray &window) const;

    void click(QPoint point) const;
    void pressKey(const QString &keys) const; ///< such as "ctrl+q"
    void pressButton(QPoint point) const;     ///< the mouse's left one, and keeps it down
    void movePointer(QPoint point) const;
    void releaseButton() const;

    /// Writes what the window shows into an image file.
    void grab(const QByteArray &window, const QString &imagePath) const;

    const SessionBus bus;
    const ScratchFolder folder; ///< with the homes of settings and data in it

private:
    QByteArray xdotool(const QStringList &arguments) const;
    QByteArray run(const QString &toolPath, const QStringList &arguments) const;

    const AccessibilityBus accessibility{bus};
    const XServer screen;
    QProcessEnvironment environment;
};
