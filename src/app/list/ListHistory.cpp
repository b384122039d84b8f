#include "app/list/ListHistory.h"

#include "Shared/PathParts.h"
#include "app/list/ListOrder.h"
#include "app/list/OrderStep.h"
#include "collage/KTMovieObject.h"
#include "platform/MakeForQt.h"
#include "platform/files/PathText.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

using Movies = MovieList::Movies;

ListHistory::ListHistory(MovieList &list) : list_(list)
{
    stack_.setUndoLimit(limit);
}

void ListHistory::arrange(Movies before, Movies after, const QString &text, const Movies &moved)
{
    if (after != before) {
        stack_.push(makeForQt<OrderStep>(list_, std::move(before), std::move(after), text, moved));
    }
}

void ListHistory::remove(const Movies &movies)
{
    const std::unordered_set<MovieList::Movie> gone(movies.begin(), movies.end());
    const Movies before = list_.snapshot();
    Movies after = before;
    const auto count = std::erase_if(after, [&gone](const auto &movie) { return gone.contains(movie); });
    //% "Remove %n Movie(s)"
    arrange(before, std::move(after), qtTrId("undo_remove", static_cast<int>(count)));
}

void ListHistory::clear()
{
    //% "Clear"
    const QString text = qtTrId("undo_clear");
    arrange(list_.snapshot(), {}, text);
}

void ListHistory::sort(const Movies &order, const QString &text)
{
    arrange(list_.snapshot(), order, text);
}

void ListHistory::move(const Movies &movies, std::size_t index)
{
    //% "Move %n Movie(s)"
    const QString text = qtTrId("undo_move", static_cast<int>(movies.size()));
    const Movies before = list_.snapshot();
    arrange(before, ListOrder::moved(before, movies, index), text, movies);
}

void ListHistory::noteExported(const Movies &before)
{
    //% "Clear after Export"
    const QString text = qtTrId("undo_clear_exported");
    arrange(before, list_.snapshot(), text);
}

void ListHistory::noteEdited(const MovieList::Movie &movie, const CollageStep::Looks &before)
{
    CollageStep::Looks were;
    CollageStep::Looks are;
    bool others = false;
    for (const CollageStep::Look &look : before) {
        const CollageStep::Look now = CollageStep::of({look.movie}).front();
        const bool isEdited = look.movie == movie;
        // The editor draws the preview of its own movie anew in any case.
        if (now.settings != look.settings || (!isEdited && now.imgPreview.cacheKey() != look.imgPreview.cacheKey())) {
            were.push_back(look);
            are.push_back(now);
            others = others || !isEdited;
        }
    }
    if (were.empty()) {
        return;
    }
    //% "Apply to All"
    const QString all = qtTrId("undo_apply_to_all");
    //% "Change Collage of %1"
    const QString one =
        qtTrId("undo_change_collage").arg(PathText::forDisplay(GlobalFun::lastPathComponent(movie->filePath)));
    stack_.push(makeForQt<CollageStep>(std::move(were), std::move(are), others ? all : one));
}
