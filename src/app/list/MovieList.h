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
    /// Removes these movies; one that is gone already does not matter.
    void remove(const Movies &movies);

private:
    mutable std::mutex guard_;
    Movies items_;
};
