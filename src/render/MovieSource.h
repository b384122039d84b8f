#pragma once

#include <memory>

class KTMovieObject;

/// The ordered list of movies that an export walks. Called on the export's thread.
class MovieSource {
public:
    virtual ~MovieSource() = default;

    /// How many movies there are now; asked again after each.
    virtual int count() = 0;
    /// The movie at the index; null when there is none to export (it could not be read, or the list has shrunk).
    virtual std::shared_ptr<KTMovieObject> movieAt(int index) = 0;
    /// Empties the list.
    virtual void removeAll() = 0;
};
