#include "platform/WindowActivation.h"

#include "platform/ActivationToken.h"

#include <QGuiApplication>
#include <QWindow>
#include <QtGui/qguiapplication_platform.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

namespace {

/// A message to whoever manages the windows of an X screen, from one of its windows.
class XScreenMessenger {
public:
    XScreenMessenger(xcb_connection_t *server, xcb_window_t from) : connection(server), window(from)
    {
        const Reply<xcb_get_geometry_reply_t> reply(
            xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr));
        root = reply ? reply->root : XCB_NONE;
    }

    /// Asks for the front on behalf of the user, who has clicked at that time. The toolkit would name the time of the
    /// last input to this program instead, which is older than what the user has done elsewhere since.
    void activate(xcb_timestamp_t time)
    {
        constexpr std::uint32_t fromApplication = 1;
        xcb_client_message_event_t event = message("_NET_ACTIVE_WINDOW", 32);
        event.data.data32[0] = fromApplication;
        event.data.data32[1] = time;
        send(event, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }

    /// Tells the desktop that the start of that id has come to its end, so that it stops showing a busy pointer. For
    /// the first start the toolkit does it; nobody else does for one that has been handed over.
    void endStartup(const QByteArray &id)
    {
        QByteArray quoted = id;
        quoted.replace('\\', "\\\\").replace('"', "\\\"");
        const QByteArray text = "remove: ID=\"" + quoted + '"';
        xcb_client_message_event_t event = message("_NET_STARTUP_INFO_BEGIN", 8);
        const auto size = static_cast<qsizetype>(sizeof event.data.data8);
        for (qsizetype at = 0; at <= text.size(); at += size) { // the zero at its end included
            const QByteArray piece = text.mid(at, size).leftJustified(size, '\0');
            std::ranges::copy(piece, event.data.data8);
            send(event, XCB_EVENT_MASK_PROPERTY_CHANGE);
            event.type = atom("_NET_STARTUP_INFO");
        }
    }

private:
    struct Free {
        void operator()(void *memory) const { std::free(memory); }
    };
    template<typename Type>
    using Reply = std::unique_ptr<Type, Free>;

    xcb_atom_t atom(QByteArrayView name) const
    {
        const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
        return reply ? reply->atom : XCB_NONE;
    }

    xcb_client_message_event_t message(QByteArrayView type, std::uint8_t bits) const
    {
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = bits;
        event.window = window;
        event.type = atom(type);
        return event;
    }

    void send(const xcb_client_message_event_t &event, std::uint32_t mask)
    {
        xcb_send_event(connection, 0, root, mask, reinterpret_cast<const char *>(&event));
        xcb_flush(connection);
    }

    xcb_connection_t *connection;
    xcb_window_t window;
    xcb_window_t root = XCB_NONE;
};

} // namespace

void activateWindow(QWindow &window, const ActivationToken &token)
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr || QGuiApplication::platformName() != u"xcb") { // others may have one without a connection
        token.exportForWayland();
        window.requestActivate();
        return;
    }
    XScreenMessenger messenger(x11->connection(), static_cast<xcb_window_t>(window.winId()));
    if (const auto time = token.time()) {
        messenger.activate(*time);
    } else {
        window.requestActivate();
    }
    if (!token.startupId.isEmpty()) {
        messenger.endStartup(token.startupId);
    }
}
