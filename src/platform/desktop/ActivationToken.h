#pragma once

#include <QByteArray>
#include <QVariantMap>

#include <cstdint>
#include <optional>

/// What proves to the window system that it is the user who has just asked for a window, so that it may come to the
/// front over whatever has the keyboard (value). The program that the user has clicked in gives it to the one that it
/// starts, which may hand it on.
struct ActivationToken {
    QByteArray token;     ///< Wayland's
    QByteArray startupId; ///< X11's; also Wayland's, from launchers that know one name only

    /// The token with which this program was started, taken out of the environment so that children do not inherit it.
    /// To be called before there are other threads, and before the application object: that removes the id on X11, when
    /// it tells the desktop that the program has started.
    static ActivationToken ofThisStart();
    /// Removes the id, which the application object takes out on X11 only. To be called right after that is made.
    static void clearEnvironment();

    /// As it travels in calls of org.freedesktop.Application; what is missing or no text is empty.
    static ActivationToken fromPlatformData(const QVariantMap &data);
    QVariantMap platformData() const;

    /// The X server's time of the click, in milliseconds; nothing when the id does not say it.
    std::optional<std::uint32_t> time() const;

    /// Lets the toolkit find the token at the next activation of a window; it looks for it in the environment. On
    /// Wayland; main thread.
    void exportForWayland() const;
};
