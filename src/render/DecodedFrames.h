#pragma once

#include "platform/threads/CancelFlag.h"
#include "render/FrameHandover.h"
#include "render/TileFrames.h"

#include <cstddef>
#include <optional>
#include <thread>
#include <vector>

class FrameDecoder;

/// Frames that are decoded in this process, on as many threads as there are cores. Tiles that one key frame leads to
/// are decoded in one go, the dearest of these groups first; pictures come at the size in which they are painted.
class DecodedFrames final : public TileFrames {
public:
    /// `cancelled` must outlive this.
    DecodedFrames(MovieTiles tiles, const CancelFlag &cancelled);
    ~DecodedFrames() override;
    DecodedFrames(const DecodedFrames &) = delete;
    DecodedFrames &operator=(const DecodedFrames &) = delete;

    GrabbedFrame next(const FrameGrabber::Waiting &waiting) override;

private:
    /// Tiles that lie behind one another in the movie, in that order.
    struct Group {
        std::vector<std::int64_t> tiles;
        double cost = 0.0; ///< seconds of the movie to be decoded
    };
    /// How the work is shared out.
    struct Crew {
        std::size_t workers = 1;
        int threads = 1; ///< that each of them decodes a long group with
    };

    void startPart();
    void plan(FrameDecoder &decoder);
    Crew crewFor(std::int64_t bytesPerFrame) const;
    void work(std::optional<FrameDecoder> decoder, int threads);
    void decode(FrameDecoder &decoder, std::int64_t tile);
    std::optional<Group> takeGroup();
    void put(std::int64_t tile, GrabbedFrame frame);
    GrabbedFrame await(std::size_t place, const FrameGrabber::Waiting &waiting);

    const MovieTiles tiles_;
    const CancelFlag &cancelled_;
    std::int64_t asked_ = 0; ///< tiles
    QImage last_;            ///< the picture of the last tile that had one

    // The part of the tiles that is under way.
    std::int64_t first_ = 0;
    CancelFlag stop_{false};
    FrameHandover handover_;    ///< guards what stands below
    std::vector<Group> groups_; ///< not taken yet, the dearest one last
    std::vector<std::optional<GrabbedFrame>> frames_;
    std::vector<std::jthread> workers_; ///< last: they use all the rest; only this object's thread touches it
};
