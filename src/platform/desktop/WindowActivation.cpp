#include "platform/desktop/WindowActivation.h"

#include "platform/desktop/ActivationToken.h"
#include "platform/desktop/XConnection.h"

#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

/// A message to whoever manages the windows of an X screen, from one of its windows.
class XScreenMessenger {
public:
    XScreenMessenger(xcb_connection_t *connection, xcb_window_t window) : connection_(connection), window_(window)
    {
        const std::unique_ptr<xcb_get_geometry_reply_t, decltype(&std::free)> reply(
            xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window_), nullptr), &std::free);
        root_ = reply ? reply->root : XCB_NONE;
    }

    /// Asks for the front on behalf of the user, who has clicked at that time. The toolkit would name the time of the
    /// last input to this program, and the window manager refuses a request that is older than the input to another
    /// one.
    void activate(xcb_timestamp_t time)
    {
        constexpr std::uint32_t fromApplication = 1;
        xcb_client_message_event_t event = message("_NET_ACTIVE_WINDOW", 32);
        event.data.data32[0] = fromApplication;
        event.data.data32[1] = time;
        send(event, XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
    }

    /// Tells the desktop that the start of that id has come to its end, so that it stops showing a busy pointer. The
    /// toolkit does that for its own start, not for one that was handed over.
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
            event.type = XConnection::atom(connection_, "_NET_STARTUP_INFO");
        }
    }

private:
    xcb_client_message_event_t message(QByteArrayView type, std::uint8_t bits) const
    {
        xcb_client_message_event_t event = {};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = bits;
        event.window = window_;
        event.type = XConnection::atom(connection_, type);
        return event;
    }

    void send(const xcb_client_message_event_t &event, std::uint32_t mask)
    {
        xcb_send_event(connection_, 0, root_, mask, reinterpret_cast<const char *>(&event));
        xcb_flush(connection_);
    }

    xcb_connection_t *connection_;
    xcb_window_t window_;
    xcb_window_t root_ = XCB_NONE;
};

} // namespace

void activateWindow(QWindow &window, const ActivationToken &token)
{
    xcb_connection_t *server = XConnection::ofThisProgram();
    if (server == nullptr) {
        token.exportForWayland();
        window.requestActivate();
        return;
    }
    XScreenMessenger messenger(server, static_cast<xcb_window_t>(window.winId()));
    if (const auto time = token.time()) {
        messenger.activate(*time);
    } else {
        window.requestActivate();
    }
    if (!token.startupId.isEmpty()) {
        messenger.endStartup(token.startupId);
    }
}
