#pragma once

#include "support/SessionBus.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QRect>
#include <QString>

#include <functional>
#include <optional>

/// A screen reader as far as programs can tell, which learns of one running program what such a reader does: its
/// widgets by their accessible names. One at a time on a bus; it answers programs only while it waits.
class ScreenReader final : private QDBusVirtualObject {
public:
    struct Object {
        QString name;
        QString role; ///< such as "push button" or "table cell"
        bool isEnabled = false;
        QRect rectangle; ///< on the screen
    };

    ScreenReader(const SessionBus &sessionBus, qint64 programId);
    ~ScreenReader() override;

    /// The first showing object of which this is true, parents before their children; nothing when there is none now.
    std::optional<Object> find(const std::function<bool(const Object &)> &isWanted) const;

    /// Waits for an object and answers it; fails the test, with a list of what is there, when it does not come.
    Object await(const std::function<bool(const Object &)> &isWanted) const;
    Object await(const QString &role, const QString &name) const;

private:
    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    QString address;
    QDBusConnection bus;
    qint64 program;
};
