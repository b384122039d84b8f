#include "app/window/ListUndo.h"

#include "app/list/ListHistory.h"
#include "app/loading/MovieJobs.h"
#include "app/table/MyTableView.h"

#include <QAction>
#include <QUndoStack>

#include <algorithm>
#include <unordered_set>

using namespace Qt::StringLiterals;

namespace {

/// A name in it may be as long as the screen is wide, or have an "&", which would mark a letter of a menu item.
QString inMenu(const QString &step, const QWidget &window)
{
    constexpr int widest = 40; // letters
    const QFontMetrics metrics = window.fontMetrics();
    QString shown = metrics.elidedText(step, Qt::ElideMiddle, widest * metrics.averageCharWidth());
    return shown.replace(u'&', u"&&"_s);
}

} // namespace

ListUndo::ListUndo(Services services) : services_(services)
{
    const QUndoStack &stack = services_.history.stack();
    connect(&stack, &QUndoStack::indexChanged, this, &ListUndo::nameActions);
    connect(&services_.undo, &QAction::triggered, this, [this] { run(&QUndoStack::undo); });
    connect(&services_.redo, &QAction::triggered, this, [this] { run(&QUndoStack::redo); });
    nameActions();
}

void ListUndo::nameActions()
{
    const QUndoStack &stack = services_.history.stack();
    const QString undone = inMenu(stack.undoText(), services_.tableView);
    const QString redone = inMenu(stack.redoText(), services_.tableView);
    services_.undo.setEnabled(stack.canUndo());
    services_.redo.setEnabled(stack.canRedo());
    //% "Undo"
    const QString undo = qtTrId("action_undo");
    //% "Redo"
    const QString redo = qtTrId("action_redo");
    //% "Undo %1"
    services_.undo.setText(stack.canUndo() ? qtTrId("action_undo_step").arg(undone) : undo);
    //% "Redo %1"
    services_.redo.setText(stack.canRedo() ? qtTrId("action_redo_step").arg(redone) : redo);
}

void ListUndo::run(void (QUndoStack::*step)())
{
    if (services_.jobs.isRunning()) {
        return;
    }
    const MovieList::Movies before = services_.movies.snapshot();
    (services_.history.stack().*step)();
    services_.tableView.reloadData();
    // What has come back is selected, so that it is seen.
    const std::unordered_set<MovieList::Movie> known(before.begin(), before.end());
    MovieList::Movies back = services_.movies.snapshot();
    std::erase_if(back, [&known](const auto &movie) { return known.contains(movie); });
    if (!back.empty()) {
        services_.tableView.selectMovies(back);
    }
}
