#pragma once

#include <QString>

#include <cstdint>

class KTMovieObject;
struct ExportResult;
struct GrabbedFrame;

/// Counts the frames of one movie that could not be grabbed, and says what is the likely cause. A value.
class MissingFrames {
public:
    /// To be called for each tile in turn; `seconds` is what it should show.
    void add(double seconds, const GrabbedFrame &frame);

    /// Makes the result incomplete where frames are missing, or where there were none to grab.
    void tell(const KTMovieObject &movie, ExportResult &result) const;

private:
    QString likelyCause(const KTMovieObject &movie) const;

    std::int64_t tiles_ = 0;
    std::int64_t missing_ = 0;
    QString problem_; ///< what the grabber says is the matter
    double firstTime_ = 0.0;
    double lastTime_ = 0.0;
    bool isTail_ = false; ///< from the first one on, all are missing
};
