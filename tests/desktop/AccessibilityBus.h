#pragma once

#include "support/SessionBus.h"

#include <QDBusVirtualObject>
#include <QThread>

/// Tells programs on the session bus that a screen reader listens on that same bus, so that they describe themselves
/// there. Programs wait for its answers when they start, so it answers on a thread of its own.
class AccessibilityBus final : private QDBusVirtualObject {
public:
    explicit AccessibilityBus(const SessionBus &sessionBus);
    ~AccessibilityBus() override;

private:
    QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

    const QString address;
    QDBusConnection bus;
    QThread thread;
};
