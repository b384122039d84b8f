#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryFile>

#include <gtest/gtest.h>

#include <atomic>

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
        daemon.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                                                     QStringLiteral("--config-file=") + configuration.fileName()});
        busAddress = QString::fromLatin1(nextLine(daemon));
        EXPECT_FALSE(busAddress.isEmpty()) << "dbus-daemon does not start";
    }
    ~SessionBus()
    {
        while (connections > 0)
            QDBusConnection::disconnectFromBus(busAddress + QString::number(--connections));
        daemon.terminate();
        daemon.waitForFinished();
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
    QTemporaryFile configuration;
    QProcess daemon;
    QString busAddress; ///< like no other bus's
    mutable std::atomic<int> connections = 0;
};
