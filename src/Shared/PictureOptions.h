#pragma once

#include "Shared/FrameSource.h"

class UserDefaults;

/// Where a movie's pictures come from, and what is done so that they look as people expect. Each of these is off as a
/// rule: the pictures are then as the ffmpeg tool gives them.
struct PictureOptions {
    FrameSource source = FrameSource::Tool;
    bool displayAspect = false; ///< in the shape in which the movie is shown, not in that of its pixels

    /// As the settings say at this moment.
    static PictureOptions fromDefaults(const UserDefaults &defaults);
};
