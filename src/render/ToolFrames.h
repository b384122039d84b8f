#pragma once

#include "Shared/FrameGrabber.h"
#include "platform/threads/CancelFlag.h"

#include <QString>

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

/// The frames of one movie's tiles in reading order. While one is decoded and painted, the tool runs for the next,
/// never twice at once. Made and asked on one thread; its end stops a running tool.
class TileFrames {
public:
    struct Tiles {
        QString moviePath;
        std::int64_t count = 0;
        std::function<double(std::int64_t tile)> timeOf; ///< seconds; called on another thread
    };

    /// Starts with the first tile. `grabber` and `cancelled` must outlive this.
    TileFrames(FrameGrabber &grabber, Tiles tiles, const CancelFlag &cancelled);
    ~TileFrames();
    TileFrames(const TileFrames &) = delete;
    TileFrames &operator=(const TileFrames &) = delete;

    /// Waits for the next tile's frame; of no use once `cancelled` is set. If the tool has hung, the rest of the tiles
    /// is not tried, since each would take as long. `waiting` hears how long the tool has been running, as FrameGrabber
    /// says.
    GrabbedFrame next(const FrameGrabber::Waiting &waiting);

private:
    void run();
    /// Puts the file where `take` finds it, once the one before has been taken. False when there is nothing more to do.
    bool hand(GrabbedFile file);
    GrabbedFile take(const FrameGrabber::Waiting &waiting);

    FrameGrabber &grabber_;
    const Tiles tiles_;
    const CancelFlag &cancelled_;
    GrabbedFrame last_;
    std::int64_t asked_ = 0; ///< tiles

    CancelFlag stop_{false}; ///< stops the tool, and with it the thread
    std::mutex mutex_;       ///< guards what stands below
    std::condition_variable changed_;
    std::optional<GrabbedFile> grabbed_;
    std::exception_ptr failure_;
    std::chrono::seconds waited_{0};
    std::jthread thread_; ///< last: it uses all the rest
};
