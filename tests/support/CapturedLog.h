#pragma once

#include <QStringList>
#include <QtGlobal>

/// Keeps the program's log lines while it lives, in place of printing them. One at a time; main thread.
class CapturedLog {
public:
    CapturedLog()
    {
        lines().clear();
        previous = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext &, const QString &line) { lines().append(line); });
    }
    ~CapturedLog() { qInstallMessageHandler(previous); }
    CapturedLog(const CapturedLog &) = delete;
    CapturedLog &operator=(const CapturedLog &) = delete;

    /// A message handler reaches nothing but statics.
    static QStringList &lines()
    {
        static QStringList all;
        return all;
    }

private:
    QtMessageHandler previous;
};
