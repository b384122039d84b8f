#pragma once

#include "app/list/MovieList.h"

#include <utility>

/// Some movies of a list for an export of their own. What the export removes goes from the list, too.
class ListedMovies final : public MovieSource {
public:
    /// The list must outlive this.
    ListedMovies(MovieList &list, MovieList::Movies movies) : list_(list), movies_(std::move(movies)) {}

    int count() override { return static_cast<int>(movies_.size()); }
    std::shared_ptr<KTMovieObject> movieAt(int index) override { return movies_.at(static_cast<std::size_t>(index)); }
    void removeAll() override
    {
        list_.rearrange(movies_, {});
        movies_.clear();
    }

private:
    MovieList &list_;
    MovieList::Movies movies_;
};
