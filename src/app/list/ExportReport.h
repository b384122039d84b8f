#pragma once

#include "app/list/MovieList.h"
#include "render/ExportObserver.h"

#include <QString>

#include <vector>

/// What has come of one export (value).
struct ExportReport {
    MovieList::Movies movies;          ///< that were to be exported, in order
    std::vector<ExportResult> results; ///< of those whose turn has come
    bool isCancelled = false;

    /// How many results are of this kind.
    int count(ExportResult::Kind kind) const;
    /// The movies that could not be made, or not whole.
    MovieList::Movies toRetry() const;
    /// The first image that has been written; empty when there is none.
    QString firstImage() const;

    /// "7 collages made, 1 failed", for the user.
    QString summary() const;
    /// What has become of one of the movies, for the user: its image, or the reason why there is none.
    static QString outcome(const ExportResult &result);
    /// A line for each movie that could not be made, or not whole; for the user.
    QString troubles() const;
    /// A line for each result: the movie, a tab, its outcome.
    QString asText() const;
};
