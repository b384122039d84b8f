#pragma once

#include <QObject>

class ListHistory;
class MovieJobs;
class MovieList;
class MyTableView;
class QAction;
class QUndoStack;

/// Undo and Redo of the main window: their menu items say what they do. Nothing is undone while a job is running or the
/// editor is open. Main thread.
class ListUndo final : public QObject {
public:
    /// All of it must outlive this.
    struct Services {
        MovieList &movies;
        ListHistory &history;
        const MovieJobs &jobs;
        MyTableView &tableView;
        QAction &undo;
        QAction &redo;
    };

    explicit ListUndo(Services services);

private:
    void nameActions();
    void run(void (QUndoStack::*step)());

    Services services_;
};
