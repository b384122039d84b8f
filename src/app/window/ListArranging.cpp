#include "app/window/ListArranging.h"

#include "app/list/ListHistory.h"
#include "app/loading/MovieJobs.h"
#include "app/table/MovieTableModel.h"
#include "app/table/MyTableView.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>

#include <algorithm>
#include <array>

namespace {

using ListOrder::Key;

struct KeyItem {
    Key key;
    QString (*name)();
};

const std::array<KeyItem, 5> keyItems{{
    //% "Name"
    {Key::Name, [] { return qtTrId("sort_name"); }},
    //% "Folder"
    {Key::Folder, [] { return qtTrId("sort_folder"); }},
    //% "Duration"
    {Key::Duration, [] { return qtTrId("sort_duration"); }},
    //% "Resolution"
    {Key::Resolution, [] { return qtTrId("sort_resolution"); }},
    //% "Bit Rate"
    {Key::BitRate, [] { return qtTrId("sort_bit_rate"); }},
}};

} // namespace

ListArranging::ListArranging(Services services) : services_(services)
{
    fillMenu();
    connect(&services_.moveUp, &QAction::triggered, this, &ListArranging::moveUp);
    connect(&services_.moveDown, &QAction::triggered, this, &ListArranging::moveDown);
    QHeaderView &headings = *services_.tableView.horizontalHeader();
    connect(&headings, &QHeaderView::sectionClicked, this, &ListArranging::headingClicked);
    headings.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&headings, &QWidget::customContextMenuRequested, this,
            [this, &headings](QPoint place) { services_.sortMenu.popup(headings.mapToGlobal(place)); });
    connect(&services_.model, &QAbstractItemModel::modelReset, this, &ListArranging::showSorting);
}

void ListArranging::fillMenu()
{
    QMenu &menu = services_.sortMenu;
    for (const KeyItem &item : keyItems) {
        const QAction *action = menu.addAction(item.name());
        connect(action, &QAction::triggered, this, [this, key = item.key] { sort(key, Qt::AscendingOrder); });
    }
    menu.addSeparator();
    //% "Reverse Order"
    connect(menu.addAction(qtTrId("sort_reverse")), &QAction::triggered, this, &ListArranging::reverse);
}

void ListArranging::sort(Key key, Qt::SortOrder order)
{
    if (services_.jobs.isRunning()) {
        return;
    }
    last_ = {key, order};
    //% "Sort by %1"
    const QString text = qtTrId("undo_sort").arg(std::ranges::find(keyItems, key, &KeyItem::key)->name());
    services_.history.sort(ListOrder::sorted(services_.model.allMovies(), key, order), text);
    services_.tableView.reloadData();
}

void ListArranging::reverse()
{
    if (services_.jobs.isRunning()) {
        return;
    }
    MovieList::Movies movies = services_.model.allMovies();
    std::ranges::reverse(movies);
    services_.history.sort(movies, qtTrId("sort_reverse"));
    services_.tableView.reloadData();
}

/// As in any table: a second click turns the order round.
void ListArranging::headingClicked(int column)
{
    if (const auto key = MovieTableModel::sortKey(column)) {
        const bool isAscending = isSorted({*key, Qt::AscendingOrder});
        sort(*key, isAscending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
}

bool ListArranging::isSorted(const Sorting &sorting) const
{
    const MovieList::Movies &movies = services_.model.allMovies();
    return ListOrder::sorted(movies, sorting.key, sorting.order) == movies;
}

/// The heading has an arrow while the list is in the order that was last asked for.
void ListArranging::showSorting()
{
    const bool holds = last_ && isSorted(*last_);
    QHeaderView &headings = *services_.tableView.horizontalHeader();
    headings.setSortIndicatorShown(false);
    for (int column = 0; holds && column < headings.count(); ++column) {
        if (MovieTableModel::sortKey(column) == last_->key) {
            headings.setSortIndicator(column, last_->order);
            headings.setSortIndicatorShown(true);
        }
    }
}

void ListArranging::moveSelected(int row)
{
    if (!services_.jobs.isRunning()) {
        services_.history.move(services_.tableView.selectedMovies(), services_.model.listIndex(row));
        services_.tableView.reloadData();
    }
}

void ListArranging::moveUp()
{
    const std::vector<int> rows = services_.tableView.selectedRows();
    if (!rows.empty()) {
        moveSelected(std::max(rows.front() - 1, 0));
    }
}

void ListArranging::moveDown()
{
    const std::vector<int> rows = services_.tableView.selectedRows();
    if (!rows.empty()) {
        moveSelected(std::min(rows.back() + 2, services_.model.rowCount()));
    }
}
