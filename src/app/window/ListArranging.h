#pragma once

#include "app/list/ListOrder.h"

#include <QObject>

#include <optional>

class ListHistory;
class MovieJobs;
class MovieTableModel;
class MyTableView;
class QAction;
class QMenu;

/// The order of the list in the user's hands: sorts it once when asked, by the menu or by a heading, and moves the
/// selected movies. It is the list's own order, and that of the export. Main thread.
class ListArranging final : public QObject {
public:
    /// All of it must outlive this.
    struct Services {
        ListHistory &history;
        const MovieJobs &jobs;
        MovieTableModel &model;
        MyTableView &tableView;
        QMenu &sortMenu; ///< gets an item for each key
        QAction &moveUp;
        QAction &moveDown;
    };

    explicit ListArranging(Services services);

    void sort(ListOrder::Key key, Qt::SortOrder order);
    void reverse();
    /// Puts the selected movies together before the row (the number of rows: at the end of the list).
    void moveSelected(int row);

private:
    struct Sorting {
        ListOrder::Key key;
        Qt::SortOrder order;
    };

    void fillMenu();
    void headingClicked(int column);
    bool isSorted(const Sorting &sorting) const;
    void showSorting();
    void moveUp();
    void moveDown();

    Services services_;
    std::optional<Sorting> last_;
};
