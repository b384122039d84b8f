#pragma once

#include "render/MovieSource.h"

#include <mutex>
#include <vector>

/// The movies of the window, in the table's order ("aryItems"). Each entry is a movie of its own, even when several
/// show the same file. Owned by the main window; safe on any thread.
class MovieList final : public MovieSource {
public:
    using Movie = std::shared_ptr<KTMovieObject>;
    using Movies = std::vector<Movie>;

    int count() override;
    Movie movieAt(int index) override;
    void removeAll() override;

    /// The movies as they are now.
    Movies snapshot() const;
    /// Puts the movie before the one at `index`; at the end when the list is shorter by now.
    void insert(int index, Movie movie);
    /// Puts the movies of `from` into the places of `to`: those that are not in `to` go, those that are in `to` alone
    /// come. Movies in neither, loaded since, stay behind the ones that they stand behind.
    void rearrange(const Movies &from, const Movies &to);

private:
    mutable std::mutex guard_;
    Movies items_;
};
