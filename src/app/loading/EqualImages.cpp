#include "app/loading/EqualImages.h"

#include <algorithm>

namespace {

constexpr std::size_t mostKnown = 16;

} // namespace

QImage EqualImages::shared(const QImage &image)
{
    const auto found = std::ranges::find(known_, image);
    if (found != known_.end()) {
        return *found;
    }
    known_.push_front(image);
    if (known_.size() > mostKnown) {
        known_.pop_back();
    }
    return image;
}
