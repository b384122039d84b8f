#pragma once

#include "media/FFmpegHandles.h"
#include "platform/Result.h"
#include "platform/threads/CancelFlag.h"

#include <QByteArray>

#include <chrono>
#include <cstdint>
#include <span>

/// A movie file that is open for reading, for the .cpp files of this layer only. For one thread at a time.
class MovieInput {
public:
    using Clock = std::chrono::steady_clock;

    /// Setting `cancelled`, which must outlive this, ends any reading soon.
    explicit MovieInput(const CancelFlag &cancelled) : cancelled_(cancelled) {}
    ~MovieInput();
    MovieInput(const MovieInput &) = delete;
    MovieInput &operator=(const MovieInput &) = delete;

    /// Opens the container at the path's bytes and looks into its streams. Only regular files are opened, also those
    /// that a playlist names. Once only, before anything else; of no use when it fails, which is in words for the user.
    Result<void> open(const QByteArray &path);

    AVFormatContext &context() const { return *context_; }
    std::span<AVStream *const> streams() const { return {context_->streams, context_->nb_streams}; }
    std::int64_t fileSize() const { return fileSize_; } ///< bytes

    /// The stream that the ffmpeg tool takes its pictures from; null when there is none. Cover art is no movie.
    AVStream *chooseVideo() const;

    /// From then on every reading fails, as if it were cancelled.
    void stopAt(Clock::time_point time) { stopAt_ = time; }
    /// Whether reading is to end: it is cancelled, or the time is over.
    bool mustStop() const { return cancelled_ || Clock::now() >= stopAt_; }

    /// FFmpeg's error in words for the user.
    static QString describe(int code);

private:
    int openContext(const QByteArray &path);
    static int openRegularFile(AVFormatContext *context, AVIOContext **file, const char *url, int flags,
                               AVDictionary **options);

    const CancelFlag &cancelled_;
    Clock::time_point stopAt_ = Clock::time_point::max();
    decltype(AVFormatContext::io_open) openPlainly_ = nullptr;
    std::int64_t fileSize_ = 0;
    FFmpegHandles::InputContext context_;
};
