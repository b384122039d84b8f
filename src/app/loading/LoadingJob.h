#pragma once

#include "app/loading/MovieLoader.h"
#include "platform/threads/CancelFlag.h"

#include <QImage>
#include <QStringList>

#include <cstddef>
#include <memory>
#include <mutex>
#include <vector>

class EqualImages;
class FrameGrabber;
class KTMovieObject;
class UserDefaults;

/// Hears what a batch does. Called on the loading thread, which does not wait for what a call sets going.
class LoadingObserver {
public:
    virtual ~LoadingObserver() = default;

    /// The movie at `index` (from 0) of `count` candidates is about to be probed. The count grows with what is added.
    virtual void loading(int index, int count, const QString &filePath) = 0;
    /// A movie is ready for the list, at that index.
    virtual void loaded(const std::shared_ptr<KTMovieObject> &movie, int indexToInsert) = 0;
    /// A folder among the paths; access to it is to be remembered.
    virtual void folderFound(const QString &path) = 0;
    /// The last call, also after a cancel.
    virtual void loadingEnded() = 0;
};

/// One batch on its way into the list: expands folders, probes, grabs the thumbnail, renders the preview. What is
/// handed over while it is under way becomes part of it.
class LoadingJob {
public:
    /// All of it must outlive the job.
    struct Services {
        UserDefaults &defaults;
        FrameGrabber &grabber;
        EqualImages &previews;  ///< of the collages, for the list
        qreal devicePixelRatio; ///< of the sharpest screen
        LoadingObserver &observer;
        const CancelFlag &bLoadingCanceled; ///< no further movie; the one in work is finished
        const CancelFlag &bMovieDropped;    ///< the movie in work is left out, too
    };

    explicit LoadingJob(Services services);

    /// Adds paths, whose movies stand at the index in the list, the last one first. Any thread.
    void add(const QStringList &paths, int indexToInsert);
    /// Whether something has been added that no walk has taken up yet. Any thread.
    bool hasMore() const;

    /// Walks all that has been added and goes on where the last walk has ended. On a thread of its own, one at a time.
    void loadMediasThread();

private:
    struct Handover {
        QStringList paths;
        int indexToInsert;
    };
    struct Candidate {
        QString path;
        int indexToInsert;
    };

    void takeUp();
    QStringList findCandidates(const QStringList &paths) const;
    QImage preview(const KTMovieObject &movie) const;
    void loadMovie(const Candidate &candidate) const;

    Services services_;
    MovieLoader loader_;
    std::vector<Candidate> candidates_; ///< of all walks; the loading thread's
    std::size_t next_ = 0;
    mutable std::mutex guard_; ///< of the one below
    std::vector<Handover> added_;
};
