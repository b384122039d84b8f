#pragma once

#include "app/table/MovieTableModel.h"
#include "platform/desktop/DroppedFiles.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTableView>

#include <optional>
#include <utility>

class DropDelegate;
class JKDropInTipsView;
class TableReloadDelegate;

/// The table of movies: takes files that are dropped between its rows, and rows that are dragged to another place,
/// forwards two keys, and shows a hint while the list is empty. Part of the main window; main thread.
class MyTableView final : public QTableView {
    Q_OBJECT

public:
    explicit MyTableView(QWidget *parent = nullptr);

    /// The model stays the caller's.
    void setMovies(MovieTableModel &model);
    /// Hears of keys and reloads; must outlive the table. Null for none.
    void setReloadDelegate(TableReloadDelegate *delegate) { reloadDelegate = delegate; }
    /// How to find the files that are dropped; by their names alone until then.
    void setDroppedFiles(DroppedFiles files) { droppedFiles_ = std::move(files); }
    /// Decides on drops; must outlive the table. Null refuses all.
    void setDropDelegate(DropDelegate *delegate) { dropDelegate_ = delegate; }

    /// Shows the list as it is now. Movies that were selected stay so. The hint is shown or removed a moment later,
    /// when the rows have been drawn.
    void reloadData();
    /// Shows the hint if there are no rows, and removes it otherwise.
    void refreshState(bool highlighted);

    /// Goes to the next movie whose name begins with what is being typed, in whatever column the keyboard is.
    void keyboardSearch(const QString &text) override;

    /// Selected rows in ascending order.
    std::vector<int> selectedRows() const;
    MovieList::Movies selectedMovies() const;
    MovieList::Movie movieAt(int row) const { return movies_->movies().at(static_cast<std::size_t>(row)); }
    /// Selects these movies alone, as far as they are shown.
    void selectMovies(const MovieList::Movies &selected);
    /// Selects the row alone, or the last one if there are fewer, and scrolls it into view.
    void selectRowAlone(int row);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    /// Home and End go to the first and last row.
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    /// Before the row, or onto it when not between.
    struct DropSpot {
        int row = 0;
        bool between = true;

        bool operator==(const DropSpot &) const = default;
    };

    void rowsDrawn();
    int rowCount() const;
    DropSpot spotAt(int y) const;
    /// The place between rows that is nearest.
    int gapAt(int y) const;
    void endDrag();
    void setInsertion(std::optional<int> row);
    /// Whether the delegate wants files there; shows it.
    bool offer(const DropSpot &spot);
    void fitRowsToFont();

    QPointer<MovieTableModel> movies_;
    TableReloadDelegate *reloadDelegate = nullptr;
    DropDelegate *dropDelegate_ = nullptr;
    DroppedFiles droppedFiles_;
    JKDropInTipsView *dropTipView = nullptr;
    std::optional<int> insertion_; // the row before which files would be put
    QElapsedTimer typed_;          // since the last letter of a name
};
