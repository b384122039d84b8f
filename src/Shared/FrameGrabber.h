#pragma once

#include "Shared/TaskWrapper.h"
#include "platform/threads/CancelFlag.h"

#include <QImage>
#include <QString>

#include <chrono>
#include <functional>
#include <mutex>
#include <optional>

/// One picture of a movie.
struct GrabbedFrame {
    QImage picture;                     ///< null when no grab has given a picture yet
    bool isNew = false;                 ///< false: the tool wrote no picture, and this is that of an earlier grab
    QString problem;                    ///< why not, for the user; empty when the tool just found none
    bool hasHung = false;               ///< the tool had to be stopped, and would have to be again
    std::optional<double> seconds = {}; ///< of the movie, where it is not that which was asked for
};

/// What the tool is asked for.
struct FrameWish {
    QString moviePath;
    double seconds = 0.0;
    QString filters; ///< of FFmpeg's, as after -vf; none when it is empty
};

/// What the tool has left of one grab, before it is decoded.
struct GrabbedFile {
    QByteArray bytes;     ///< the picture file, which may be that of an earlier grab; empty when there is none
    bool isNew = false;   ///< this grab has written it
    QString problem;      ///< as in GrabbedFrame, for the case that the file is no picture
    bool hasHung = false; ///< as in GrabbedFrame
    std::optional<double> seconds = {}; ///< as in GrabbedFrame
};

/// Grabs single frames of movies with the external `ffmpeg` tool. One per process, owned by main; safe on any thread,
/// grabs run one after the other.
class FrameGrabber {
public:
    using Waiting = std::function<void(std::chrono::seconds)>;

    /// `tool` is the path of the one to run; the frames pass through the file "x.jpg" in `temporaryFolder`, which
    /// should be this process's own. `limits` say when a tool that does not end is stopped.
    FrameGrabber(QString tool, const QString &temporaryFolder, TaskLimits limits = {});

    /// The frame shown at `seconds`. When the tool gives none, the previous grab's picture, whatever movie it was of.
    /// Setting `cancelled` stops the running tool; the result is then of no use.
    GrabbedFrame createThumbnail(const QString &moviePath, double seconds, const CancelFlag &cancelled);

    /// The same in two steps, so that the next grab can run while this one's picture is decoded. `waiting`, which may
    /// be empty, hears each second for how long the tool has been running, from the second one on; on the same thread.
    GrabbedFile grab(const FrameWish &wish, const CancelFlag &cancelled, const Waiting &waiting);
    static GrabbedFrame decode(GrabbedFile file);

    /// Where the tool is expected: "<path of the executable>/../ffmpeg", resolved as text.
    static QString toolPathBeside(const QString &executablePath);

private:
    const QString tool_;
    const QString pictureFile_;
    const TaskLimits limits_;
    std::mutex oneAtATime_;
};
