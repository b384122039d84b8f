#pragma once

#include <QProcess>
#include <QString>

/// An X server without a screen, with a window manager, of a test's own; both end with their owner.
class XServer {
public:
    /// Returns when windows can be shown; fails the test when they cannot.
    XServer();
    ~XServer();
    XServer(const XServer &) = delete;
    XServer &operator=(const XServer &) = delete;

    /// Its name, for the variable DISPLAY.
    QString display() const { return name; }

private:
    QProcess server;
    QProcess windowManager;
    QString name;
};
