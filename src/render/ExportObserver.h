#pragma once

#include <QImage>
#include <QString>

#include <cstdint>

/// How far an export is, after the picture of each tile.
struct ExportProgress {
    QString filePath; ///< the movie in work
    int movie = 0;    ///< its index, from 0
    int movieCount = 0;
    std::int64_t tile = 0; ///< tiles of this movie done, from 1
    std::int64_t tileCount = 0;
    QImage picture; ///< of this tile; may be null
};

/// Hears what an export does. Called on the export's thread; the export does not wait for what a call sets going.
class ExportObserver {
public:
    virtual ~ExportObserver() = default;

    virtual void updateProgress(const ExportProgress &progress) = 0;
    /// A complete image stands at the path.
    virtual void imageWritten(const QString &moviePath, const QString &imagePath) = 0;
    /// No image was written; the reason is for the user. Not called where the alert panel has said so.
    virtual void movieFailed(const QString &moviePath, const QString &reason) = 0;
    /// The image shows an earlier picture, or none, on this many of its tiles.
    virtual void framesMissing(const QString &moviePath, std::int64_t missing, std::int64_t tileCount) = 0;
    /// The last call, also after a cancel.
    virtual void exportEnded() = 0;
};
