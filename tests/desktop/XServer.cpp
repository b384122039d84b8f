#include "desktop/XServer.h"

#include <QProcessEnvironment>

#include <gtest/gtest.h>

namespace {

/// The next line that the program writes; empty when there is none.
QByteArray nextLine(QProcess &program)
{
    while (!program.canReadLine() && program.waitForReadyRead()) {
    }
    return program.readLine().trimmed();
}

void end(QProcess &program)
{
    program.terminate();
    if (!program.waitForFinished()) {
        program.kill();
        program.waitForFinished();
    }
}

} // namespace

XServer::XServer()
{
    server.start(QStringLiteral("Xvfb"), {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-noreset"),
                                          QStringLiteral("-nolisten"), QStringLiteral("tcp"), QStringLiteral("-screen"),
                                          QStringLiteral("0"), QStringLiteral("2560x1600x24")});
    name = u':' + QString::fromLatin1(nextLine(server));
    EXPECT_NE(name, u":") << "Xvfb does not start: " << server.readAllStandardError().constData();

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), name);
    windowManager.setProcessEnvironment(environment);
    // It runs this command once it manages the windows.
    windowManager.start(QStringLiteral("openbox"),
                        {QStringLiteral("--sm-disable"), QStringLiteral("--startup"), QStringLiteral("echo ready")});
    QByteArray line = nextLine(windowManager);
    while (!line.isEmpty() && line != "ready") { // it complains of missing menus
        line = nextLine(windowManager);
    }
    EXPECT_EQ(line, "ready") << "openbox does not start";
}

XServer::~XServer()
{
    end(windowManager);
    end(server);
}
