#pragma once

#include "platform/Result.h"
#include "platform/threads/CancelFlag.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>

/// Decodes single pictures of one movie inside the process. For one thread at a time; several may be open on one movie.
/// Hostile files end in an error, after limits that are named in the source. Memory that runs out is std::bad_alloc.
class FrameDecoder {
public:
    /// Opens the file as the probe does, at the stream that the ffmpeg tool chooses. Setting `cancelled`, which must
    /// outlive the decoder, makes every call fail soon. Errors are in words for the user, here and below.
    static Result<FrameDecoder> open(const QString &path, const CancelFlag &cancelled);
    ~FrameDecoder();
    FrameDecoder(FrameDecoder &&other) noexcept;
    FrameDecoder &operator=(FrameDecoder &&other) noexcept;

    /// Pictures come at this size; at their own when it is empty, as at first.
    void scaleTo(QSize size);

    /// How many threads decode what follows on a seek; one at first.
    void useThreads(int count);

    /// What one decoded frame takes in memory.
    std::int64_t bytesPerFrame() const;

    /// Pictures go through this chain of FFmpeg's filters, written as for the tool's -vf, before they are turned
    /// upright and scaled; through none when it is empty, as at first.
    void filterBy(const QByteArray &filters);

    /// The picture that the ffmpeg tool gives for `-ss seconds -i path -vframes 1`, as it looks in the tool's JPEG but
    /// for what that loses; in Format_RGB32. The seconds are rounded to two decimals, as for the tool. A null image
    /// when there is no such picture, as past the end. Fastest when times ascend.
    Result<QImage> exactFrame(double seconds);

    /// The key frame at or before the time, or the first one; null when there is none.
    Result<QImage> keyFrame(double seconds);

    /// A picture that has been looked for; null when there is none.
    struct Found {
        QImage picture;
        double seconds = 0.0; ///< of the movie, for which exactFrame() gives it, too, or in which the key frame stands
    };

    /// The first picture behind that of the one time and before the other that is not blank, as exactFrame() gives it.
    Result<Found> exactContent(double seconds, double end);

    /// The first key frame between the times that is not blank.
    Result<Found> keyContent(double seconds, double end);

    /// The time of the key frame that decoding starts at for this time, in seconds like it; nothing where the container
    /// has no index. Times with the same one are best decoded by one decoder, in their order.
    std::optional<double> keyTimeBefore(double seconds);

private:
    class State;
    explicit FrameDecoder(std::unique_ptr<State> state);
    std::unique_ptr<State> state_;
};
