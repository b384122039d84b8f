#pragma once

#include "collage/CollageSettings.h"
#include "media/VXMediaInfoItem.h"

#include <QImage>

#include <mutex>

/// One movie of the list: what the probe found, the settings of its collage, and two pictures for the list.
/// Owned by the list and whoever works on it (shared pointer). Settings and pictures may be read and replaced on any
/// thread; the probed fields are only read once the movie is in the list.
class KTMovieObject final : public VXMediaInfoItem {
public:
    /// A copy of the settings, consistent in itself.
    CollageSettings settings() const;
    void setSettings(const CollageSettings &settings);

    /// A small picture of the movie, null when none could be grabbed.
    QImage imgThumbnail() const;
    void setImgThumbnail(const QImage &image);

    /// The last rendered preview of the collage.
    QImage imgPreview() const;
    void setImgPreview(const QImage &image);

private:
    mutable std::mutex guard_;
    CollageSettings collage_;
    QImage thumbnail_;
    QImage preview_;
};
