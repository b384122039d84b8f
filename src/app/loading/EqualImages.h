#pragma once

#include <QImage>

#include <deque>

/// Lets images that are equal share their memory: most previews in a long list are, since most movies of it have the
/// same shape. Remembers the last few it was given; belongs to one thread at a time.
class EqualImages {
public:
    /// The image, or an equal one given before.
    QImage shared(const QImage &image);

private:
    std::deque<QImage> known_;
};
