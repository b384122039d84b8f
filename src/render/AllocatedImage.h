#pragma once

#include <QImage>

#include <new>

/// An image that must be there: the toolkit gives a null one where memory has run out. Throws std::bad_alloc for it.
inline QImage allocated(QImage image)
{
    if (image.isNull()) {
        throw std::bad_alloc();
    }
    return image;
}
