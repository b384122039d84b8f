#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// Asks the user a question that stops the work at hand.
class AlertPanel {
public:
    virtual ~AlertPanel() = default;

    /// Shows title, message and buttons, the first button being the default and the last one what Escape means, and
    /// waits; returns the index of the answer. Not for the main thread of a program with windows, which must not wait:
    /// that calls show().
    virtual int run(const QString &title, const QString &message, const QStringList &buttons) = 0;

    /// The same without waiting, on the main thread: `answered` gets the index, once, later or during the call. It is
    /// not called when the window that the question belongs to goes away first. This default, for panels that answer by
    /// themselves, calls run().
    virtual void show(const QString &title, const QString &message, const QStringList &buttons,
                      std::function<void(int answer)> answered) // NOLINT(performance-unnecessary-value-param)
    {
        answered(run(title, message, buttons));
    }

    /// Tells something that stops no work; the button puts it away. Main thread.
    virtual void tell(const QString &title, const QString &message, const QString &button)
    {
        show(title, message, {button}, [](int) {});
    }
};
