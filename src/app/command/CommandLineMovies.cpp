#include "app/command/CommandLineMovies.h"

#include "collage/KTMovieObject.h"

#include <utility>

CommandLineMovies::CommandLineMovies(QStringList paths, MovieLoader movieLoader, ClipRange range, Events movieEvents,
                                     const CancelFlag &cancelFlag) :
    candidates(std::move(paths)),
    loader(movieLoader),
    clip(range),
    events(std::move(movieEvents)),
    cancelled(cancelFlag)
{
}

int CommandLineMovies::count()
{
    return static_cast<int>(candidates.size());
}

std::shared_ptr<KTMovieObject> CommandLineMovies::movieAt(int index)
{
    const QString &path = candidates.at(index);
    events.loading(path, index);
    const MovieLoader::Result result = loader.load(path, cancelled);
    if (!result.movie) {
        if (!cancelled) {
            events.unreadable(path, result.problem);
        }
        return nullptr;
    }
    CollageSettings settings = result.movie->settings();
    settings.startPoint = clip.start.value_or(settings.startPoint);
    settings.endPoint = clip.end.value_or(settings.endPoint);
    result.movie->setSettings(settings);
    return result.movie;
}

void CommandLineMovies::removeAll()
{
    candidates.clear();
}
