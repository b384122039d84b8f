#pragma once

#include <QDBusConnection>
#include <QString>

#include <optional>

/// The progress that a desktop's task bar shows on the program's button. A signal on the session bus that nobody need
/// hear. Main thread.
class TaskbarProgress final {
public:
    /// `identifier` is the name of the program's desktop file, without suffix.
    TaskbarProgress(const QDBusConnection &sessionBus, const QString &identifier);

    /// From 0 to 1, in whole hundredths; nothing hides it.
    void show(std::optional<double> fraction);

private:
    const QDBusConnection sessionBus_;
    const QString entry_;
    std::optional<int> hundredths_; ///< shown
};
