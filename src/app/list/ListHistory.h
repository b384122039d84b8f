#pragma once

#include "app/list/CollageStep.h"
#include "app/list/MovieList.h"

#include <QUndoStack>

/// What the user has done to the list, step by step, so that it can be undone. Steps hold records, their order and
/// settings, never files. Loading is no step: movies that were loaded since a step stay in the list, behind the ones
/// that they stand behind. Main thread, and not while a job is running.
class ListHistory {
public:
    /// Steps that are kept. A step holds the records that it took off and two orders or the looks that it changed, so
    /// this many Clears of a full list are the most that there is to hold.
    static constexpr int limit = 50;

    /// The list must outlive the history.
    explicit ListHistory(MovieList &list);

    /// Where steps are undone and done again.
    QUndoStack &stack() { return stack_; }

    void remove(const MovieList::Movies &movies);
    void clear();
    /// Puts the movies of the list into this order; the text names the step.
    void sort(const MovieList::Movies &order, const QString &text);
    /// Puts these movies of the list together before the one at the index. Moving the same ones on is the same step.
    void move(const MovieList::Movies &movies, std::size_t index);

    /// An export, which may have emptied the list, has ended: these were in it at its beginning.
    void noteExported(const MovieList::Movies &before);
    /// The editor has left this movie: the looks of all movies when it came to it.
    void noteEdited(const MovieList::Movie &movie, const CollageStep::Looks &before);

private:
    void arrange(MovieList::Movies before, MovieList::Movies after, const QString &text,
                 const MovieList::Movies &moved = {});

    MovieList &list_;
    QUndoStack stack_;
};
