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
        QString role;    ///< such as "push button" or "table cell"
        QRect rectangle; ///< on the screen
    };
    using Filter = std::function<bool(const Object &)>;

    ScreenReader(QDBusConnection bus, qint64 program);

    /// Waits for a showing object and answers it; fails the test when none comes.
    Object await(const Filter &isWanted) const;
    Object await(const QString &role, const QString &name) const;
    /// Whether anything of this role is showing now.
    bool has(const QString &role) const;
    /// Waits until nothing of this role is showing.
    void awaitNone(const QString &role) const;

private:
    /// The first showing object of which this is true, parents before their children; nothing when there is none now.
    std::optional<Object> find(const Filter &isWanted) const;

    QDBusConnection bus_;
    qint64 program_;
};
