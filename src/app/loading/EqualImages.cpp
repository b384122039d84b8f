#include "app/loading/EqualImages.h"

#include <algorithm>

namespace {

constexpr std::size_t mostKnown = 16;

} // namespace

QImage EqualImages::shared(const QImage &image)
{
    const auto found = std::ranges::find(known, image);
    if (found != known.end()) {
        return *found;
    }
    known.push_front(image);
    if (known.size() > mostKnown) {
        known.pop_back();
    }
    return image;
}
