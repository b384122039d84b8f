#pragma once

#include "platform/files/FileDescriptor.h"

#include <QLatin1StringView>
#include <QSocketNotifier>

class NotificationCenter;

/// Says when a network has come, gone or changed. Whoever waits for one owns it; main thread.
///
/// It asks the kernel, since not every session has a network service to ask.
class NetworkWatch {
public:
    static constexpr QLatin1StringView changed{"kNetworkReachabilityChangedNotification"};

    /// Posts `changed` in the centre, which must outlive this, until it ends. Where the kernel tells nothing there is a
    /// line in the log and never a post.
    explicit NetworkWatch(NotificationCenter &center);
    NetworkWatch(const NetworkWatch &) = delete;
    NetworkWatch &operator=(const NetworkWatch &) = delete;

private:
    void takeMessages();

    NotificationCenter &center_;
    FileDescriptor socket_;
    QSocketNotifier notifier_;
};
