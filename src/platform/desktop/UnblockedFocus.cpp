#include "platform/desktop/UnblockedFocus.h"

#include "platform/desktop/XConnection.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace {

bool hasKeyboard(xcb_connection_t *server, xcb_window_t window)
{
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> focus(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr), &std::free);
    return focus && focus->focus == window;
}

/// What the server says when a window gets the keyboard; said twice it does no harm.
void repeatFocusIn(xcb_connection_t *server, xcb_window_t window)
{
    xcb_focus_in_event_t event = {};
    event.response_type = XCB_FOCUS_IN;
    event.detail = XCB_NOTIFY_DETAIL_NONLINEAR;
    event.event = window;
    event.mode = XCB_NOTIFY_MODE_NORMAL;
    static_assert(sizeof event <= 32, "the size of every event");
    char bytes[32] = {};
    std::memcpy(bytes, &event, sizeof event);
    xcb_send_event(server, 0, window, XCB_EVENT_MASK_NO_EVENT, bytes); // without a mask it comes back to this program
    xcb_flush(server);
}

} // namespace

UnblockedFocus::UnblockedFocus()
{
    if (XConnection::ofThisProgram() != nullptr) {
        qGuiApp->installEventFilter(this);
    }
}

bool UnblockedFocus::eventFilter(QObject *receiver, QEvent *event)
{
    const auto *window = event->type() == QEvent::WindowUnblocked ? qobject_cast<QWindow *>(receiver) : nullptr;
    if (window != nullptr && window->handle() != nullptr) {
        xcb_connection_t *server = XConnection::ofThisProgram();
        const auto id = static_cast<xcb_window_t>(window->winId());
        if (hasKeyboard(server, id)) {
            repeatFocusIn(server, id);
        }
    }
    return false;
}
