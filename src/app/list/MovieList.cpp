#include "app/list/MovieList.h"

#include <algorithm>
#include <unordered_map>
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

void MovieList::rearrange(const Movies &from, const Movies &to)
{
    const std::unordered_set<Movie> kept(to.begin(), to.end());
    std::unordered_set<Movie> known = kept;
    known.insert(from.begin(), from.end());
    Movies arranged; // what goes is destroyed after the lock is given back
    const auto append = [&arranged](const Movies &movies) {
        arranged.insert(arranged.end(), movies.begin(), movies.end());
    };
    const std::scoped_lock lock(guard_);
    std::unordered_map<Movie, Movies> loadedBehind; // null: at the top
    Movie last;
    for (const Movie &movie : items_) {
        if (!known.contains(movie)) {
            loadedBehind[last].push_back(movie);
        } else if (kept.contains(movie)) {
            last = movie;
        }
    }
    append(loadedBehind[nullptr]);
    for (const Movie &movie : to) {
        arranged.push_back(movie);
        append(loadedBehind[movie]);
    }
    items_.swap(arranged);
}
