#include "app/list/MovieList.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

int MovieList::count()
{
    const std::scoped_lock lock(guard_);
    return static_cast<int>(items_.size());
}

MovieList::Movie MovieList::movieAt(int index)
{
    const std::scoped_lock lock(guard_);
    return index >= 0 && index < std::ssize(items_) ? items_[static_cast<std::size_t>(index)] : nullptr;
}

void MovieList::removeAll()
{
    Movies removed; // destroyed after the lock is given back
    const std::scoped_lock lock(guard_);
    items_.swap(removed);
}

MovieList::Movies MovieList::snapshot() const
{
    const std::scoped_lock lock(guard_);
    return items_;
}

void MovieList::insert(int index, Movie movie)
{
    const std::scoped_lock lock(guard_);
    items_.insert(items_.begin() + std::clamp<std::ptrdiff_t>(index, 0, std::ssize(items_)), std::move(movie));
}

void MovieList::remove(const Movies &movies)
{
    const std::unordered_set<Movie> removed(movies.begin(), movies.end());
    const std::scoped_lock lock(guard_);
    std::erase_if(items_, [&removed](const Movie &movie) { return removed.contains(movie); });
}
