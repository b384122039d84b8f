#pragma once

#include <QImage>

#include <new>

/// Returns the image, or throws std::bad_alloc if it is null: the toolkit gives a null image when memory has run out.
inline QImage allocated(QImage image)
{
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    return image;
}
