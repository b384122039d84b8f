#pragma once

#include "app/list/MovieList.h"
#include "collage/CollageSettings.h"

#include <QImage>
#include <QUndoCommand>

#include <vector>

/// A step of the list's history that changed collages. Main thread.
class CollageStep final : public QUndoCommand {
public:
    /// One movie's collage at a time (value).
    struct Look {
        MovieList::Movie movie;
        CollageSettings settings;
        QImage imgPreview;
    };
    using Looks = std::vector<Look>;

    /// The collages of these movies as they are now.
    static Looks of(const MovieList::Movies &movies);

    CollageStep(Looks before, Looks after, const QString &text);

    void undo() override { show(before_); }
    void redo() override { show(after_); }

private:
    static void show(const Looks &looks);

    const Looks before_;
    const Looks after_;
};
