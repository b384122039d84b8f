#pragma once

#include "app/loading/MovieLoader.h"
#include "platform/threads/CancelFlag.h"

#include <QImage>
#include <QStringList>

#include <functional>

class FrameGrabber;
class KTMovieObject;
class UserDefaults;

/// Hears what a batch does. Called on the batch's thread, which does not wait for what a call sets going.
class LoadingObserver {
public:
    virtual ~LoadingObserver() = default;

    /// The movie at `index` (from 0) of `count` candidates is about to be probed.
    virtual void loading(int index, int count, const QString &filePath) = 0;
    /// A movie is ready for the list.
    virtual void loaded(const std::shared_ptr<KTMovieObject> &movie) = 0;
    /// A folder among the paths; access to it is to be remembered.
    virtual void folderFound(const QString &path) = 0;
    /// The last call, also after a cancel.
    virtual void loadingEnded() = 0;
};

/// One batch of paths on its way into the list: expands folders, probes, grabs the thumbnail, renders the preview.
/// Made and run once, on a thread of its own.
class LoadingJob {
public:
    /// All of it must outlive the job.
    struct Services {
        UserDefaults &defaults;
        FrameGrabber &grabber;
        /// Renders the picture of the movie's collage for the list.
        std::function<QImage(const KTMovieObject &)> renderPreview;
        qreal devicePixelRatio; ///< of the sharpest screen
        LoadingObserver &observer;
        const CancelFlag &bLoadingCanceled;
    };

    explicit LoadingJob(Services services);

    /// Walks the paths; stops before the next movie once the flag is set.
    void loadMediasThread(const QStringList &paths);

private:
    QStringList findCandidates(const QStringList &paths) const;
    void loadMovie(const QString &path) const;

    Services services;
    MovieLoader loader;
};
