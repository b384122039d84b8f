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

    /// That of whoever started this program, out of the environment: children of this program have nothing to do with
    /// it. Only to be called while there is but one thread, and before the application object, whose part for X11 takes
    /// the id out as well, to tell the desktop that the start has come to its end.
    static ActivationToken ofThisStart();
    /// Removes the id too where the application object has left it. Right after that is made.
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
