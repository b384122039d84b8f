#include "app/list/CollageStep.h"

#include "collage/KTMovieObject.h"

#include <utility>

CollageStep::Looks CollageStep::of(const MovieList::Movies &movies)
{
    Looks looks;
    looks.reserve(movies.size());
    for (const auto &movie : movies) {
        looks.push_back({movie, movie->settings(), movie->imgPreview()});
    }
    return looks;
}

CollageStep::CollageStep(Looks before, Looks after, const QString &text) :
    QUndoCommand(text), before_(std::move(before)), after_(std::move(after))
{
}

void CollageStep::show(const Looks &looks)
{
    for (const Look &look : looks) {
        look.movie->setSettings(look.settings);
        look.movie->setImgPreview(look.imgPreview);
    }
}
