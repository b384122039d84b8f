#pragma once

#include <optional>

/// What a movie's stream says about its pictures beside their size, where it matters for how they are to look. A value.
struct PictureTraits {
    /// The colours of a picture that is brighter than a screen can show it, by their numbers in ITU-T H.273.
    struct HighRange {
        int transfer = 0; ///< 16 is PQ, 18 is HLG
        int primaries = 0;
        int matrix = 0;
    };

    double sampleAspect = 1.0;          ///< how much wider than high a pixel is shown, 0.1 to 10; 1 when unknown
    bool isOnItsSide = false;           ///< an upright picture is as wide as the decoded one is high
    bool mayBeInterlaced = false;       ///< false only when the stream, or its being turned, excludes it
    std::optional<HighRange> highRange; ///< nothing for all other pictures
};
