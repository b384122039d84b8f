#pragma once

#include <QAbstractNativeEventFilter>
#include <QPointer>
#include <QWindow>

#include <cstdint>
#include <functional>

/// Hears the close button of a window while a sheet blocks the window: the toolkit ignores it then, so that the user
/// could not close the program during a job. On X11 only. Main thread.
class BlockedCloseButton final : public QAbstractNativeEventFilter {
public:
    /// `pressed` is called from the event loop. The window must have been shown; it may go first.
    BlockedCloseButton(QWindow &window, std::function<void()> pressed);
    ~BlockedCloseButton() override;
    BlockedCloseButton(const BlockedCloseButton &) = delete;
    BlockedCloseButton &operator=(const BlockedCloseButton &) = delete;

    bool nativeEventFilter(const QByteArray &eventType, void *message, qintptr *result) override;

private:
    const QPointer<QWindow> window_;
    const std::function<void()> pressed_;
    std::uint32_t protocols_ = 0; ///< the X server's numbers for what a close button sends; 0 without an X server
    std::uint32_t deleteWindow_ = 0;
};
