#pragma once

#include "support/SessionBus.h"

#include <QProcess>

/// An X server without a screen, with a window manager, of a test's own; both end with their owner.
class XServer {
public:
    /// Returns when windows can be shown; fails the test when they cannot.
    XServer()
    {
        server_.start(u"Xvfb"_qs, u"-displayfd 1 -noreset -nolisten tcp -screen 0 2560x1600x24"_qs.split(u' '));
        name_ = u':' + QString::fromLatin1(nextLine(server_));
        EXPECT_NE(name_, u":") << "Xvfb does not start: " << server_.readAllStandardError().constData();
        // It runs its last argument once it manages the windows.
        windowManager_.start(
            u"env"_qs, {u"DISPLAY="_qs + name_, u"openbox"_qs, u"--sm-disable"_qs, u"--startup"_qs, u"echo ready"_qs});
        QByteArray line = nextLine(windowManager_);
        while (!line.isEmpty() && line != "ready") { // it complains of missing menus
            line = nextLine(windowManager_);
        }
        EXPECT_EQ(line, "ready") << "openbox does not start";
    }
    ~XServer()
    {
        for (QProcess *program : {&windowManager_, &server_}) {
            program->terminate();
            program->waitForFinished();
        }
    }
    Q_DISABLE_COPY(XServer)

    /// Its name, for the variable DISPLAY.
    QString display() const { return name_; }

private:
    QProcess server_;
    QProcess windowManager_;
    QString name_;
};
