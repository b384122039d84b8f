#pragma once

#include "app/list/MovieList.h"

#include <QUndoCommand>

/// A step of the list's history that moved movies or took them off. It holds the order before and after it, and with
/// them the records that are off the list. Main thread.
class OrderStep final : public QUndoCommand {
public:
    /// The list must outlive the step. Steps that move the same movies on become one; those that move none never do.
    OrderStep(MovieList &list, MovieList::Movies before, MovieList::Movies after, const QString &text,
              MovieList::Movies moved = {});

    void undo() override { list_.rearrange(after_, before_); }
    void redo() override { list_.rearrange(before_, after_); }
    int id() const override;
    bool mergeWith(const QUndoCommand *next) override;

private:
    MovieList &list_;
    const MovieList::Movies before_;
    MovieList::Movies after_;
    const MovieList::Movies moved_;
};
