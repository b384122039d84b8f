#pragma once

#include <QStringList>

/// Keeps the program's log lines while it lives, in place of printing them. One at a time.
struct CapturedLog {
    CapturedLog()
    {
        lines.clear();
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) { lines.append(line); });
    }
    ~CapturedLog() { qInstallMessageHandler(nullptr); }
    Q_DISABLE_COPY(CapturedLog)

    static inline QStringList lines; ///< a message handler reaches nothing but globals
};
