#include "app/list/ListOrder.h"

#include "Shared/PathParts.h"
#include "collage/KTMovieObject.h"
#include "platform/files/PathText.h"

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <utility>

using Movie = MovieList::Movie;
using Movies = MovieList::Movies;

namespace {

/// Each key is made once, since comparing names in a locale takes long.
template<class MakeKey>
Movies sortedBy(const Movies &movies, Qt::SortOrder order, const MakeKey &makeKey)
{
    using Keyed = std::pair<decltype(makeKey(std::declval<const KTMovieObject &>())), Movie>;
    std::vector<Keyed> keyed;
    keyed.reserve(movies.size());
    for (const auto &movie : movies) {
        keyed.emplace_back(makeKey(*movie), movie);
    }
    std::stable_sort(keyed.begin(), keyed.end(), [order](const Keyed &one, const Keyed &other) {
        return order == Qt::AscendingOrder ? one.first < other.first : other.first < one.first;
    });
    Movies result;
    result.reserve(keyed.size());
    for (auto &each : keyed) {
        result.push_back(std::move(each.second));
    }
    return result;
}

std::int64_t pixels(const KTMovieObject &movie)
{
    return std::int64_t(movie.pixWidth) * movie.pixHeight;
}

} // namespace

QCollator ListOrder::collator(const QLocale &locale)
{
    // The C locale compares bytes, and knows no numbers.
    QCollator collator(locale.language() == QLocale::C ? QLocale(QLocale::English) : locale);
    collator.setNumericMode(true);
    return collator;
}

Movies ListOrder::sorted(const Movies &movies, Key key, Qt::SortOrder order, const QCollator &collator)
{
    const auto inWords = [&collator](const QString &path) { return collator.sortKey(PathText::forDisplay(path)); };
    switch (key) {
    case Key::Name:
        return sortedBy(movies, order, [&inWords](const KTMovieObject &movie) {
            return inWords(GlobalFun::lastPathComponent(movie.filePath));
        });
    case Key::Folder:
        return sortedBy(movies, order, [&inWords](const KTMovieObject &movie) {
            return inWords(GlobalFun::deletingLastPathComponent(movie.filePath));
        });
    case Key::Duration:
        return sortedBy(movies, order, [](const KTMovieObject &movie) { return movie.duration; });
    case Key::Resolution:
        return sortedBy(movies, order, pixels);
    case Key::BitRate:
        return sortedBy(movies, order, [](const KTMovieObject &movie) { return movie.videoBitrate; });
    }
    return movies;
}

Movies ListOrder::moved(const Movies &movies, const Movies &some, std::size_t index)
{
    const std::unordered_set<Movie> moving(some.begin(), some.end());
    const auto stays = [&moving](const Movie &movie) { return !moving.contains(movie); };
    Movies result = movies;
    const auto place = result.begin() + static_cast<std::ptrdiff_t>(std::min(index, result.size()));
    std::stable_partition(result.begin(), place, stays);
    std::stable_partition(place, result.end(), std::not_fn(stays));
    return result;
}
