#pragma once

#include "platform/threads/CancelFlag.h"

#include <QString>

#include <memory>

class KTMovieObject;
class UserDefaults;

/// Loads one movie: probes the file and gives it the default collage. Holds no state of its own; safe on any thread.
class MovieLoader {
public:
    struct Result {
        std::shared_ptr<KTMovieObject> movie; ///< null when the file is no movie
        QString problem;                      ///< why, for the user; empty with a movie
    };

    explicit MovieLoader(const UserDefaults &defaults);

    /// Setting `cancelled` makes it fail soon.
    Result load(const QString &path, const CancelFlag &cancelled) const;

private:
    const UserDefaults &defaults_;
};
