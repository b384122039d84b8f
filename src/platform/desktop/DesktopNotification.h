#pragma once

#include "platform/desktop/ActivationToken.h"

#include <QDBusConnection>
#include <QImage>
#include <QString>

#include <cstdint>
#include <functional>
#include <memory>

class OrgFreedesktopNotificationsInterface;
class OrgFreedesktopPortalNotificationInterface;

/// A message that the desktop shows outside the program's windows: one at a time, a new one takes the place of the
/// last. Nothing waits for the desktop; where none shows messages, nothing happens. Main thread.
class DesktopNotification final {
public:
    /// The user has clicked on the message; the token lets a window come to the front.
    using Clicked = std::function<void(const ActivationToken &click)>;

    /// `identifier` is the name of the program's desktop file, without suffix. `sandboxed`: the desktop is reached
    /// through its portal.
    DesktopNotification(const QDBusConnection &sessionBus, QString identifier, bool sandboxed, Clicked clicked);
    ~DesktopNotification();
    DesktopNotification(const DesktopNotification &) = delete;
    DesktopNotification &operator=(const DesktopNotification &) = delete;

    /// `picture` may be null.
    void show(const QString &title, const QString &text, const QImage &picture);

private:
    void reachService();
    void reachPortal();
    void showByService(const QString &title, const QString &text, const QImage &picture);
    void showByPortal(const QString &title, const QString &text, const QImage &picture);

    const QDBusConnection sessionBus_;
    const QString identifier_;
    const bool sandboxed_;
    const Clicked clicked_;
    std::uint32_t shown_ = 0;                                       ///< the service's number of the message; 0 for none
    ActivationToken click_;                                         ///< tells of itself before the click that it is for
    std::unique_ptr<OrgFreedesktopNotificationsInterface> service_; ///< one of the two, from the first message on
    std::unique_ptr<OrgFreedesktopPortalNotificationInterface> portal_;
};
