#include "collage/KTMovieObject.h"

CollageSettings KTMovieObject::settings() const
{
    const std::scoped_lock lock(guard);
    return collage;
}

void KTMovieObject::setSettings(const CollageSettings &settings)
{
    const std::scoped_lock lock(guard);
    collage = settings;
}

QImage KTMovieObject::imgThumbnail() const
{
    const std::scoped_lock lock(guard);
    return thumbnail;
}

void KTMovieObject::setImgThumbnail(const QImage &image)
{
    const std::scoped_lock lock(guard);
    thumbnail = image;
}

QImage KTMovieObject::imgPreview() const
{
    const std::scoped_lock lock(guard);
    return preview;
}

void KTMovieObject::setImgPreview(const QImage &image)
{
    const std::scoped_lock lock(guard);
    preview = image;
}
