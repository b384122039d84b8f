#pragma once

#include "media/FrameDecoder.h"
#include "platform/threads/CancelFlag.h"
#include "render/FrameHandover.h"
#include "render/TileFrames.h"

#include <optional>
#include <thread>

/// Frames that the ffmpeg tool grabs. While one is decoded and painted, the tool runs for the next, never twice at
/// once. If it has hung, the rest of the tiles is not tried, since each would take as long.
class ToolFrames final : public TileFrames {
public:
    /// `grabber` and `cancelled` must outlive this.
    ToolFrames(FrameGrabber &grabber, MovieTiles tiles, const CancelFlag &cancelled);
    ~ToolFrames() override;
    ToolFrames(const ToolFrames &) = delete;
    ToolFrames &operator=(const ToolFrames &) = delete;

    GrabbedFrame next(const FrameGrabber::Waiting &waiting) override;

private:
    GrabbedFile grab(std::int64_t tile, const CancelFlag &cancelled, const FrameGrabber::Waiting &waiting);
    std::optional<double> contentBehind(double seconds, const CancelFlag &cancelled);
    void run();
    /// Puts the file where `take` finds it, once the one before has been taken. False when there is nothing more to do.
    bool hand(GrabbedFile file);
    GrabbedFile take(const FrameGrabber::Waiting &waiting);

    FrameGrabber &grabber_;
    const MovieTiles tiles_;
    const CancelFlag &cancelled_;
    GrabbedFrame last_;
    std::int64_t asked_ = 0; ///< tiles

    std::optional<FrameDecoder> search_; ///< looks for pictures that are not of one colour; belongs to who grabs
    CancelFlag stop_{false};             ///< stops the tool, and with it the thread
    FrameHandover handover_;             ///< guards what stands below
    std::optional<GrabbedFile> grabbed_;
    FrameHandover::Clock::time_point begun_ = FrameHandover::Clock::now(); ///< with the tile in work

    std::jthread thread_; ///< last: it uses all the rest
};
