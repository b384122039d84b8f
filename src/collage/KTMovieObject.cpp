#include "collage/KTMovieObject.h"

CollageSettings KTMovieObject::settings() const
{
    const std::scoped_lock lock(guard_);
    return collage_;
}

void KTMovieObject::setSettings(const CollageSettings &settings)
{
    const std::scoped_lock lock(guard_);
    collage_ = settings;
}

QImage KTMovieObject::imgThumbnail() const
{
    const std::scoped_lock lock(guard_);
    return thumbnail_;
}

void KTMovieObject::setImgThumbnail(const QImage &image)
{
    const std::scoped_lock lock(guard_);
    thumbnail_ = image;
}

QImage KTMovieObject::imgPreview() const
{
    const std::scoped_lock lock(guard_);
    return preview_;
}

void KTMovieObject::setImgPreview(const QImage &image)
{
    const std::scoped_lock lock(guard_);
    preview_ = image;
}
