#pragma once

/// How a slider's values lie along its track (arithmetic). Any numbers will do: where there is no track or no range,
/// everything lies at its start.
struct SliderScale {
    double left = 0.0;    ///< x of the track's start, in points
    double width = 0.0;   ///< of the track, in points
    double minimum = 0.0; ///< value at the start
    double length = 1.0;  ///< values along the track

    /// The value at x, or at the nearest end of the track.
    double valueAt(double x) const;
    /// The x of the value, or of the nearest end of the range.
    double xOf(double value) const;
    /// The x of the value, which may lie beyond the track; finite.
    double unboundedXOf(double value) const;
};
