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
        configuration.open();
        configuration.write("<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
                            "<policy context=\"default\"><allow send_destination=\"*\"/><allow eavesdrop=\"true\"/>"
                            "<allow own=\"*\"/></policy></busconfig>");
        configuration.close();
        // Not by QProcess: once that has started a program, ThreadSanitizer sees no lock of this thread any more.
        const QByteArray command = "exec dbus-daemon --nofork --print-address=1 --print-pid=1 --config-file=" +
                                   configuration.fileName().toUtf8();
        daemon.reset(::popen(command.constData(), "re"));
        busAddress = QString::fromLatin1(nextLine());
        daemonId = nextLine().toInt();
        EXPECT_FALSE(busAddress.isEmpty()) << "dbus-daemon does not start";
    }
    ~SessionBus()
    {
        while (connections > 0) {
            QDBusConnection::disconnectFromBus(busAddress + QString::number(--connections));
        }
        if (daemonId > 0) {
            ::kill(daemonId, SIGTERM); // and the stream's end waits for it
        }
    }
    SessionBus(const SessionBus &) = delete;
    SessionBus &operator=(const SessionBus &) = delete;

    QString address() const { return busAddress; }
    /// A new connection, as another program would have; closed with the bus. On any thread.
    QDBusConnection connect() const
    {
        return QDBusConnection::connectToBus(busAddress, busAddress + QString::number(connections++));
    }

private:
    QByteArray nextLine() const
    {
        std::array<char, 1024> line{};
        return QByteArray(std::fgets(line.data(), line.size(), daemon.get())).trimmed();
    }

    QTemporaryFile configuration;
    std::unique_ptr<std::FILE, int (*)(std::FILE *)> daemon{nullptr, ::pclose};
    pid_t daemonId = 0;
    QString busAddress; ///< like no other bus's
    mutable std::atomic<int> connections = 0;
};
