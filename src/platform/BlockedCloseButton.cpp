#include "platform/BlockedCloseButton.h"

#include <QByteArrayView>
#include <QGuiApplication>

#include <cstdlib>
#include <memory>
#include <utility>
#include <xcb/xcb.h>

namespace {

std::uint32_t atom(xcb_connection_t *connection, QByteArrayView name)
{
    const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : 0;
}

} // namespace

BlockedCloseButton::BlockedCloseButton(QWindow &blocked, std::function<void()> buttonPressed) :
    window(&blocked), pressed(std::move(buttonPressed))
{
    const auto *server = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (server != nullptr && QGuiApplication::platformName() == u"xcb") { // others may have one without a connection
        protocols = atom(server->connection(), "WM_PROTOCOLS");
        deleteWindow = atom(server->connection(), "WM_DELETE_WINDOW");
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
    const bool isBlocked = window && QGuiApplication::modalWindow() != nullptr;
    if (!isBlocked || said->window != window->winId() || said->type != protocols ||
        said->data.data32[0] != deleteWindow) {
        return false;
    }
    QMetaObject::invokeMethod(
        window, [this] { pressed(); }, Qt::QueuedConnection);
    return true;
}
