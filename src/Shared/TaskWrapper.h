#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

#include <memory>

/// Hears of a tool's life; every call is optional. Calls arrive on the thread that started the tool.
class TaskController {
public:
    virtual ~TaskController() = default;

    virtual void processStarted() {}
    virtual void appendOutput(const QString & /*text*/) {}
    virtual void processFinished() {}
    virtual void launcherDidTerminatedWithCode(int /*exitStatus*/) {}
};
