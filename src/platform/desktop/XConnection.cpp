#include "platform/desktop/XConnection.h"

#include <QGuiApplication>
#include <QtGui/qguiapplication_platform.h>

#include <cstdlib>
#include <memory>

xcb_connection_t *XConnection::ofThisProgram()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Other platforms may have the interface without a connection.
    return x11 != nullptr && QGuiApplication::platformName() == u"xcb" ? x11->connection() : nullptr;
}

xcb_atom_t XConnection::atom(xcb_connection_t *connection, QByteArrayView name)
{
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : XCB_NONE;
}
