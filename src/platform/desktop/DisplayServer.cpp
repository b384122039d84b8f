#include "platform/desktop/DisplayServer.h"

#include "platform/files/FileDescriptor.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <xcb/xcb.h>

namespace {

bool reachesX11()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        return false;
    }
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    const bool failed = xcb_connection_has_error(connection) != 0;
    xcb_disconnect(connection);
    return !failed;
}

bool reachesWayland()
{
    if (qEnvironmentVariableIsSet("WAYLAND_SOCKET")) { // an open connection that this program has been given
        return true;
    }
    const QByteArray name = qgetenv("WAYLAND_DISPLAY");
    const QByteArray folder = name.startsWith('/') ? QByteArray() : qgetenv("XDG_RUNTIME_DIR");
    const QByteArray path = folder + '/' + name; // two slashes in a row do no harm
    sockaddr_un address = {};
    if (name.isEmpty() || path.size() >= static_cast<qsizetype>(sizeof address.sun_path)) {
        return false;
    }
    address.sun_family = AF_UNIX;
    std::ranges::copy(path, address.sun_path);
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return ::connect(socket.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
}

} // namespace

bool hasDisplayServer(std::span<char *const> arguments)
{
    QByteArray platforms = qgetenv("QT_QPA_PLATFORM");
    for (std::size_t index = 1; index + 1 < arguments.size(); ++index) {
        if (QByteArrayView(arguments[index]) == "-platform" || QByteArrayView(arguments[index]) == "--platform") {
            platforms = arguments[index + 1];
        }
    }
    if (platforms.isEmpty()) {
        return reachesX11() || reachesWayland();
    }
    return std::ranges::any_of(platforms.split(';'), [](const QByteArray &platform) { // the toolkit tries one by one
        return platform.startsWith("xcb")       ? reachesX11()
               : platform.startsWith("wayland") ? reachesWayland()
                                                : !platform.isEmpty();
    });
}
