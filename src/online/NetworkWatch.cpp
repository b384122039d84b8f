#include "online/NetworkWatch.h"

#include "platform/Log.h"
#include "platform/threads/NotificationCenter.h"

#include <sys/socket.h>

#include <array>
#include <linux/rtnetlink.h>

namespace {

/// A socket to which the kernel writes when links, addresses and routes come and go.
FileDescriptor networkEvents()
{
    FileDescriptor socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE));
    sockaddr_nl address = {};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_IFADDR | RTMGRP_IPV6_ROUTE;
    if (::bind(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        qCWarning(lcTessarine).noquote() << "changes of the network are not heard:" << qt_error_string();
        socket.reset();
    }
    return socket;
}

} // namespace

NetworkWatch::NetworkWatch(NotificationCenter &center) :
    center_(center), socket_(networkEvents()), notifier_(QSocketNotifier::Read)
{
    if (socket_.isOpen()) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &notifier_, [this] { takeMessages(); });
        notifier_.setSocket(socket_.get());
        notifier_.setEnabled(true);
    }
}

void NetworkWatch::takeMessages()
{
    // What exactly has changed does not matter, nor does a message that was lost because there were too many.
    std::array<char, 8192> message{};
    for (int taken = 0; taken < 64 && ::recv(socket_.get(), message.data(), message.size(), 0) > 0; ++taken) {
    }
    center_.post(changed);
}
