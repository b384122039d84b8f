#pragma once

#include <QImage>

#include <cstdint>
#include <span>

/// How the ffmpeg tool turns a movie's pictures before it writes them.
struct Upright {
    double degrees = 0.0; ///< clockwise, 0 to below 360; comes before mirroring
    bool mirrorsSides = false;
    bool mirrorsTop = false;

    /// As a display matrix demands, of which these are the bytes of its nine numbers. Fewer bytes turn nothing.
    static Upright of(std::span<const std::uint8_t> bytes);

    /// Whether width and height change places.
    bool swapsSides() const { return degrees == 90.0 || degrees == 270.0; }
    QImage apply(const QImage &picture) const;
};
