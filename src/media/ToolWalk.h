#pragma once

#include "media/MovieReader.h"
#include "media/ToolClock.h"

#include <cstdint>
#include <optional>

/// Walks from frame to frame of a movie, with the times that the ffmpeg tool would give them after `-ss`. For the .cpp
/// files of this layer only; for one thread at a time. Times are as MovieReader's, errors in words for the user.
class ToolWalk {
public:
    /// Reads by `reader`, which must outlive this.
    explicit ToolWalk(MovieReader &reader);

    /// How many threads decode what follows on a seek; one at first.
    void useThreads(int count) { threads_ = count; }

    /// Goes to the frame that the tool gives for this time from the movie's start; false when there is none.
    Result<bool> goTo(std::int64_t time);
    /// Goes on to the next frame, one with a later time; false at the end.
    Result<bool> goOn();
    /// The reader has been used for something else: the next frame is sought anew.
    void leave() { canGoOn_ = false; }

    /// The one that it stands at.
    const AVFrame &frame() const { return *frame_; }
    /// That one's time, in ticks.
    std::int64_t ticks() const { return reached_; }

private:
    Result<void> seek(std::int64_t time);
    bool canGoOnTo(std::int64_t ticks) const;
    Result<bool> decodeNext(std::int64_t target);
    void feed(std::int64_t target);

    MovieReader &reader_;
    int threads_ = 1;
    FFmpegHandles::CodecContext decoder_;
    FFmpegHandles::Frame frame_;
    std::optional<ToolClock> clock_;
    bool canGoOn_ = false;
    std::int64_t sought_ = 0; ///< the time last sought, in ticks
    std::int64_t reached_ = AV_NOPTS_VALUE;
};
