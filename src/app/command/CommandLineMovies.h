#pragma once

#include "app/loading/MovieLoader.h"
#include "platform/threads/CancelFlag.h"
#include "render/MovieSource.h"

#include <QStringList>

#include <functional>
#include <optional>

/// The movies of a command line, each loaded when its turn comes and forgotten afterwards, so that ten thousand cost
/// no more memory than one.
class CommandLineMovies final : public MovieSource {
public:
    /// A clip range for every movie; what is absent stays the movie's own. Seconds.
    struct ClipRange {
        std::optional<double> start;
        std::optional<double> end;
    };

    struct Events {
        /// A file is about to be looked into, which may take its time.
        std::function<void(const QString &path, int index)> loading;
        /// It is no movie.
        std::function<void(const QString &path, const QString &reason)> unreadable;
    };

    /// The flag and what the loader uses must outlive this.
    CommandLineMovies(QStringList candidates, MovieLoader loader, ClipRange clip, Events events,
                      const CancelFlag &cancelled);

    int count() override;
    std::shared_ptr<KTMovieObject> movieAt(int index) override;
    void removeAll() override;

private:
    QStringList candidates_;
    MovieLoader loader_;
    ClipRange clip_;
    Events events_;
    const CancelFlag &cancelled_;
};
