#pragma once

#include <QDBusConnection>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

/// What a screen reader learns of one running program: its widgets by their accessible names.
class ScreenReader {
public:
    struct Object {
        QString name;
        QString role; ///< such as "push button" or "table cell"
        bool isEnabled = false;
        QRect rectangle; ///< on the screen
    };

    ScreenReader(QDBusConnection accessibilityBus, qint64 programId);

    /// The first showing object of which this is true, parents before their children; nothing when there is none now.
    std::optional<Object> find(const std::function<bool(const Object &)> &isWanted) const;

    /// Waits for an object and answers it; fails the test, with a list of what is there, when it does not come.
    Object await(const std::function<bool(const Object &)> &isWanted) const;
    Object await(const QString &role, const QString &name) const;
    /// Waits until nothing of this role is showing.
    void awaitNone(const QString &role) const;

private:
    QDBusConnection bus;
    qint64 program;
};
