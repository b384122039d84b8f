#pragma once

#include <QImage>

#include <deque>

/// Lets equal images share their memory. Most previews in a long list are equal, since most of its movies have the same
/// shape. Remembers the last few it was given; belongs to one thread at a time.
class EqualImages {
public:
    /// The image, or an equal one given before.
    QImage shared(const QImage &image);

private:
    std::deque<QImage> known_;
};
