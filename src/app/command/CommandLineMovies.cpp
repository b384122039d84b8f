#include "app/command/CommandLineMovies.h"

#include "collage/KTMovieObject.h"

#include <utility>

CommandLineMovies::CommandLineMovies(QStringList candidates, MovieLoader loader, ClipRange clip, Events events,
                                     const CancelFlag &cancelled) :
    candidates_(std::move(candidates)), loader_(loader), clip_(clip), events_(std::move(events)), cancelled_(cancelled)
{
}

int CommandLineMovies::count()
{
    return static_cast<int>(candidates_.size());
}

std::shared_ptr<KTMovieObject> CommandLineMovies::movieAt(int index)
{
    const QString &path = candidates_.at(index);
    events_.loading(path, index);
    const auto movie = loader_.load(path, cancelled_);
    if (!movie) {
        if (!cancelled_) {
            events_.unreadable(path, movie.error());
        }
        return nullptr;
    }
    CollageSettings settings = (*movie)->settings();
    settings.startPoint = clip_.start.value_or(settings.startPoint);
    settings.endPoint = clip_.end.value_or(settings.endPoint);
    (*movie)->setSettings(settings);
    return *movie;
}

void CommandLineMovies::removeAll()
{
    candidates_.clear();
}
