#pragma once

#include "platform/Result.h"
#include "platform/threads/CancelFlag.h"

#include <QString>

#include <memory>

class KTMovieObject;
class UserDefaults;

/// Loads one movie: probes the file and gives it the default collage, in the shape that the settings ask for. Holds no
/// state of its own; safe on any thread.
class MovieLoader {
public:
    explicit MovieLoader(const UserDefaults &defaults);

    /// The movie, or why the file is none. Setting `cancelled` makes it fail soon.
    Result<std::shared_ptr<KTMovieObject>> load(const QString &path, const CancelFlag &cancelled) const;

private:
    const UserDefaults &defaults_;
};
