#pragma once

#include <QString>
#include <QStringList>

/// Asks the user a question that stops the work at hand. May be called on any thread; the caller waits.
class AlertPanel {
public:
    virtual ~AlertPanel() = default;

    /// Shows title, message and buttons, the first button being the default; returns the index of the answer.
    virtual int run(const QString &title, const QString &message, const QStringList &buttons) = 0;
};
