#pragma once

#include "Shared/FrameSource.h"

class UserDefaults;

/// Where a movie's pictures come from, and what is done so that they look as people expect. Each of these is off as a
/// rule: the pictures are then as the ffmpeg tool gives them.
struct PictureOptions {
    FrameSource source = FrameSource::Tool;
    bool displayAspect = false; ///< in the shape in which the movie is shown, not in that of its pixels
    bool deinterlace = false;   ///< without the combs of movies that are made of half pictures
    bool toneMap = false;       ///< movies that are brighter than a screen can show them, as they are meant for one
    bool skipBlank = false;     ///< the next picture, instead of one that is of one colour

    /// As the settings say at this moment.
    static PictureOptions fromDefaults(const UserDefaults &defaults);
};
