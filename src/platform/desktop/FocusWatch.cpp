#include "platform/desktop/FocusWatch.h"

#include "platform/desktop/XConnection.h"

#include <QEvent>
#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace {

xcb_window_t windowWithKeyboard(xcb_connection_t *server)
{
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> focus(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr), &std::free);
    return focus ? focus->focus : XCB_NONE;
}

/// Sends the toolkit the server's event for the window that has the keyboard, if it is one of the program's. One too
/// many does no harm.
void repeatFocusIn()
{
    xcb_connection_t *server = XConnection::ofThisProgram();
    const xcb_window_t window = windowWithKeyboard(server);
    const QWindowList windows = QGuiApplication::topLevelWindows();
    if (std::ranges::none_of(windows, [window](const QWindow *each) {
            return each->handle() != nullptr && each->isVisible() && each->winId() == window;
        })) {
        return;
    }
    xcb_focus_in_event_t event = {};
    event.response_type = XCB_FOCUS_IN;
    event.detail = XCB_NOTIFY_DETAIL_NONLINEAR;
    event.event = window;
    event.mode = XCB_NOTIFY_MODE_NORMAL;
    char bytes[32] = {}; // the size of every event
    std::memcpy(bytes, &event, sizeof event);
    xcb_send_event(server, 0, window, XCB_EVENT_MASK_NO_EVENT, bytes); // without a mask it comes back to this program
    xcb_flush(server);
}

/// Perhaps with other sheets between: an alert hangs over the progress sheet, and that over the main window.
bool hangsOver(const QWindow &sheet, const QWindow *window)
{
    const QWindow *below = sheet.transientParent();
    while (below != nullptr && below != window) {
        below = below->transientParent();
    }
    return below != nullptr;
}

} // namespace

FocusWatch::FocusWatch()
{
    if (XConnection::ofThisProgram() == nullptr) {
        return;
    }
    // The request may come back before the sheet closes, which the event filter notices, or after.
    qGuiApp->installEventFilter(this);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, [](const QWindow *focused) {
        QWindow *sheet = QGuiApplication::modalWindow();
        if (focused != nullptr && !focused->isVisible()) {
            repeatFocusIn();
        } else if (sheet != nullptr && sheet->isVisible() && hangsOver(*sheet, focused)) {
            sheet->requestActivate(); // the user has clicked on the window below, which takes no key
        }
    });
}

bool FocusWatch::eventFilter(QObject *receiver, QEvent *event)
{
    // The receiver first: an event for anything else may be another thread's, handed over by locks of Qt's own.
    if (receiver->isWindowType() && event->type() == QEvent::WindowUnblocked) {
        repeatFocusIn();
    }
    return false;
}
