#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <memory>

/// The next line that the program writes; empty when it ends without one.
inline QByteArray nextLine(QProcess &program)
{
    while (!program.canReadLine() && program.waitForReadyRead()) {
    }
    return program.readLine().trimmed();
}

/// A D-Bus session bus of a test's own, on which nothing is started by itself; ends with its owner.
class SessionBus {
public:
    SessionBus()
    {
        configuration_.open();
        configuration_.write("<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
                             "<policy context=\"default\"><allow send_destination=\"*\"/><allow eavesdrop=\"true\"/>"
                             "<allow own=\"*\"/></policy></busconfig>");
        configuration_.close();
        // Not by QProcess: after it has started a program, ThreadSanitizer no longer sees the locks of this thread.
        const QByteArray command = "exec dbus-daemon --nofork --print-address=1 --print-pid=1 --config-file=" +
                                   configuration_.fileName().toUtf8();
        daemon_.reset(::popen(command.constData(), "re"));
        busAddress_ = QString::fromLatin1(nextLine());
        daemonId_ = nextLine().toInt();
        EXPECT_FALSE(busAddress_.isEmpty()) << "dbus-daemon does not start";
    }
    ~SessionBus()
    {
        while (connections_ > 0) {
            QDBusConnection::disconnectFromBus(busAddress_ + QString::number(--connections_));
        }
        if (daemonId_ > 0) {
            ::kill(daemonId_, SIGTERM); // and the stream's end waits for it
        }
    }
    Q_DISABLE_COPY(SessionBus)

    QString address() const { return busAddress_; }
    /// A new connection, as another program would have; closed with the bus. On any thread.
    QDBusConnection connect() const
    {
        return QDBusConnection::connectToBus(busAddress_, busAddress_ + QString::number(connections_++));
    }

private:
    QByteArray nextLine() const
    {
        std::array<char, 1024> line{};
        return QByteArray(std::fgets(line.data(), line.size(), daemon_.get())).trimmed();
    }

    QTemporaryFile configuration_;
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> daemon_{nullptr, ::pclose};
    pid_t daemonId_ = 0;
    QString busAddress_; ///< like no other bus's
    mutable std::atomic<int> connections_ = 0;
};
