#pragma once

#include <QImage>
#include <QString>

#include <chrono>
#include <cstdint>

/// How far an export is, after the picture of each tile and while the next one is waited for.
struct ExportProgress {
    QString filePath; ///< the movie in work
    int movie = 0;    ///< its index, from 0
    int movieCount = 0;
    std::int64_t tile = 0;          ///< tiles of this movie done, from 1
    std::int64_t tileCount = 0;     ///< 0: the file is still being looked into
    QImage picture;                 ///< of this tile; may be null
    std::chrono::seconds waited{0}; ///< not 0: how long the next tile has been waited for
};

/// What has become of one movie of an export.
struct ExportResult {
    enum class Kind {
        Written,
        Incomplete, ///< an image was written that does not show all of what it should
        Failed,     ///< there is no image, or the movie was gone
    };

    Kind kind = Kind::Written;
    int movie = 0;                  ///< its index, from 0
    QString filePath;               ///< the movie
    QString imagePath;              ///< where its image stands; empty when there is none
    QString reason;                 ///< what is wrong, for the user; empty when all is well
    std::int64_t missingFrames = 0; ///< tiles that show an earlier picture, or none
    std::int64_t tileCount = 0;
    bool isRangeOutside = false; ///< frames are missing because the movie ends before its range does
};

/// Hears what an export does. Called on the export's thread; the export does not wait for what a call sets going.
class ExportObserver {
public:
    virtual ~ExportObserver() = default;

    virtual void updateProgress(const ExportProgress &progress) = 0;
    /// Called once for each movie, as soon as its image is written or cannot be; not for one that was cancelled.
    virtual void movieEnded(const ExportResult &result) = 0;
    /// The last call, also after a cancel.
    virtual void exportEnded() = 0;
};
