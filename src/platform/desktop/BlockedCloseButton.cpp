#include "platform/desktop/BlockedCloseButton.h"

#include "platform/desktop/XConnection.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <utility>
#include <xcb/xcb.h>

BlockedCloseButton::BlockedCloseButton(QWindow &window, std::function<void()> pressed) :
    window_(&window), pressed_(std::move(pressed))
{
    if (xcb_connection_t *server = XConnection::ofThisProgram()) {
        protocols_ = XConnection::atom(server, "WM_PROTOCOLS");
        deleteWindow_ = XConnection::atom(server, "WM_DELETE_WINDOW");
        qGuiApp->installNativeEventFilter(this);
    }
}

BlockedCloseButton::~BlockedCloseButton()
{
    qGuiApp->removeNativeEventFilter(this);
}

bool BlockedCloseButton::nativeEventFilter(const QByteArray &eventType, void *message, qintptr * /*result*/)
{
    static constexpr unsigned eventMask = 0x7f; // without the mark of events that a program has sent
    const auto *event = static_cast<const xcb_generic_event_t *>(message);
    if (eventType != "xcb_generic_event_t" || (event->response_type & eventMask) != XCB_CLIENT_MESSAGE) {
        return false;
    }
    const auto *said = static_cast<const xcb_client_message_event_t *>(message);
    const bool isBlocked = window_ && QGuiApplication::modalWindow() != nullptr;
    if (!isBlocked || said->window != window_->winId() || said->type != protocols_ ||
        said->data.data32[0] != deleteWindow_) {
        return false;
    }
    QMetaObject::invokeMethod(
        window_, [this] { pressed_(); }, Qt::QueuedConnection);
    return true;
}
