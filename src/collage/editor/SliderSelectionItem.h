#pragma once

/// A stretch of a slider's range, in the slider's units (value).
struct SliderSelectionItem {
    /// The shortest selection that the user can make.
    static constexpr double minimumLength = 5.0;

    double dStart = 0.0;
    double dLength = -1.0; ///< nothing is selected unless it is positive

    double end() const { return dStart + dLength; }

    /// Moves the start and keeps the end, no further than the minimum allows.
    void moveStart(double value)
    {
        const double length = dLength - (value - dStart);
        if (length >= minimumLength) {
            dStart = value;
            dLength = length;
        } else {
            dStart = end() - minimumLength;
            dLength = minimumLength;
        }
    }

    /// Moves the end and keeps the start, no nearer than the minimum allows.
    void moveEnd(double value)
    {
        const double length = value - dStart;
        dLength = length >= minimumLength ? length : minimumLength;
    }
};
