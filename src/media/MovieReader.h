#pragma once

#include "media/MovieInput.h"

#include <cstdint>
#include <memory>
#include <vector>

/// Reads the packets that pictures are decoded from, beginning where the ffmpeg tool would or at key frames. For the
/// .cpp files of this layer only; for one thread at a time. Times are in microseconds of the container, but where the
/// stream's own units ("ticks") are named. Errors are in words for the user.
class MovieReader {
public:
    /// Setting `cancelled`, which must outlive this, ends any reading soon.
    MovieReader(QByteArray path, const CancelFlag &cancelled);

    /// Opens the file, or opens it anew; whatever belonged to it before is then gone, its stream too.
    Result<void> open();

    AVFormatContext &context() const { return input_->context(); }
    AVStream &stream() const { return *stream_; }
    /// The container's time for one that is counted from the movie's start.
    std::int64_t fromStart(std::int64_t time) const;
    /// The time before which the tool drops frames when it seeks for this one, counted from the movie's start.
    std::int64_t shownFrom(std::int64_t time) const;
    std::int64_t inTicks(std::int64_t time) const { return av_rescale_q(time, AV_TIME_BASE_Q, stream_->time_base); }

    /// Whether key frames are found by an index.
    bool hasIndex() const { return hasIndex_; }
    /// The ticks at which the index has a key frame at or before these; unknown where it has none.
    std::int64_t keyBefore(std::int64_t ticks) const;
    /// Whether it has all before these ticks: some grow while the movie is read.
    bool knowsKeysUpTo(std::int64_t ticks) const { return isWhole_ || hasKeyFrom(ticks); }
    /// Makes sure that the index has been read.
    void loadIndex();

    /// Begins to count for the limits on one picture.
    void beginPicture();
    /// Whether the work on one picture must end: it is cancelled or has broken a limit; problem() says which.
    bool mustStop() const { return packetsLeft_ <= 0 || input_->mustStop(); }
    QString problem() const;

    /// Goes to where the tool begins to decode for this time. True when what follows is the same as if it had decoded
    /// up to there from anywhere before. May open the file anew.
    Result<bool> seekAsTheTool(std::int64_t time);
    /// The next packet of the stream, until the next call; null at the end.
    AVPacket *read();
    /// The packets of the key frame at or before the time, or of the first one; none when there is none. May open the
    /// file anew.
    Result<std::vector<FFmpegHandles::Packet>> readKey(std::int64_t time);

    /// Goes to a place from which the key frames behind this time are read. May open the file anew.
    Result<void> goToKeyBefore(std::int64_t time);
    /// The packets of the next key frame that stands behind these ticks; none at the end.
    Result<std::vector<FFmpegHandles::Packet>> readKeyBehind(std::int64_t ticks);
    /// When the packet's picture is shown, in ticks, as far as it says so.
    static std::int64_t timeOf(const AVPacket &packet);

private:
    bool hasKeyFrom(std::int64_t ticks) const;
    void dropOthers(bool drop);
    bool trySeekAsTheTool(std::int64_t time);
    bool seekForKey(std::int64_t time);
    bool readKeyBefore(std::int64_t ticks, std::vector<FFmpegHandles::Packet> &key);
    std::size_t packetsPerFrame() const;

    const QByteArray path_;
    const CancelFlag &cancelled_;
    std::unique_ptr<MovieInput> input_;
    AVStream *stream_ = nullptr;
    bool hasIndex_ = false;
    bool isWhole_ = false; ///< the index does not grow
    bool isFresh_ = true;  ///< nothing has been sought or read since the file was opened
    int packetsLeft_ = 0;
    FFmpegHandles::Packet packet_;
};
