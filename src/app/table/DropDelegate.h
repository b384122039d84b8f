#pragma once

#include <QStringList>

/// Decides on files that are dragged over the table, and takes those and the rows that are dropped. Main thread.
class DropDelegate {
public:
    virtual ~DropDelegate() = default;

    /// Whether files may be dropped before `row` (the number of rows: at the end), or onto it when not `between`.
    virtual bool validateDrop(int /*row*/, bool between) { return between; }
    /// Files and folders, at least one, were dropped before `row`; the list may have changed since.
    virtual void acceptDrop(const QStringList &paths, int row) = 0;
    /// The selected rows were dragged to before `row`.
    virtual void moveRows(int row) = 0;
};
