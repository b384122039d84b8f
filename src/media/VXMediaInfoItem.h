#pragma once

#include "media/PictureTraits.h"

#include <QString>

#include <cstdint>

/// What a media file turned out to be; Movie is one with a video stream.
enum class VXMediaType : std::int32_t { Movie = 0, Audio = 1, Image = 2, Unknown = 3 };

/// What the probe found in one movie file. The caller makes it and sets `filePath`, the probe fills the rest; after
/// that it is only read, on any thread.
class VXMediaInfoItem {
public:
    VXMediaInfoItem() = default;
    virtual ~VXMediaInfoItem() = default;
    VXMediaInfoItem(const VXMediaInfoItem &) = delete;
    VXMediaInfoItem &operator=(const VXMediaInfoItem &) = delete;

    QString filePath; ///< as the user gave it, links not resolved; see PathText
    VXMediaType eumMediaType = VXMediaType::Unknown;
    double duration = 0.0;     ///< seconds, 0 or more
    std::int32_t pixWidth = 0; ///< pixels of the upright picture, or as it is shown; above 0 for a movie
    std::int32_t pixHeight = 0;
    double videoFps = 0.0;     ///< frames per second, 0 when unknown
    QString strVideoCodecName; ///< as FFmpeg names it, for example "h264"
    double videoBitrate = 0.0; ///< bits per second, 0 when unknown
    PictureTraits traits;
};
