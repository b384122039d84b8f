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

    /// `unreadable` hears of each file that is no movie. The flag and what the loader uses must outlive this.
    CommandLineMovies(QStringList candidates, MovieLoader loader, ClipRange clip,
                      std::function<void(const QString &path, const QString &reason)> unreadable,
                      const CancelFlag &cancelled);

    int count() override;
    std::shared_ptr<KTMovieObject> movieAt(int index) override;
    void removeAll() override;

private:
    QStringList candidates;
    MovieLoader loader;
    ClipRange clip;
    std::function<void(const QString &, const QString &)> unreadable;
    const CancelFlag &cancelled;
};
