#pragma once

#include "media/VXMediaInfoItem.h"
#include "platform/threads/CancelFlag.h"

#include <QString>

#include <optional>

/// Prepares FFmpeg for this process. Further calls do nothing; the probe calls it as well. Safe on any thread.
void FFMpegInit();

/// Why a file could not be probed, in words for the user (without the path).
struct MediaError {
    QString description;
};

/// The media probe: says what is in a movie file. Holds no state; safe on any thread, several at once too.
class VXMediaInfo {
public:
    /// Opens the file at `item.filePath` and fills the item. On failure `error` says why and the item is unchanged; on
    /// success `error` is left alone. Only regular files are opened. Setting `cancelled` makes it fail soon.
    static void dumpMediaInfo(VXMediaInfoItem &item, std::optional<MediaError> &error, const CancelFlag &cancelled);
};
