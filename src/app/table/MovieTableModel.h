#pragma once

#include "app/list/ListOrder.h"
#include "app/list/MovieFilter.h"
#include "app/list/MovieList.h"

#include <QAbstractTableModel>
#include <QImage>

#include <optional>

/// What the table of movies shows: the list and its movies as they were at the last reloadData(), whatever other
/// threads and the editor do to them since. Owned by the main window; main thread.
class MovieTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Thumbnail, Summary, Title, Grids, Description, ColumnCount };

    /// The list must outlive the model.
    explicit MovieTableModel(const MovieList &list, QObject *parent = nullptr);

    /// Takes a new snapshot of the list.
    void reloadData();

    /// Which movies are shown from the next reload on.
    void setFilter(const MovieFilter &filter) { filter_ = filter; }

    /// The movies shown, in order of the rows.
    const MovieList::Movies &movies() const { return shown_; }
    /// All movies of the list, shown or not.
    const MovieList::Movies &allMovies() const { return all_; }
    /// Where in the list the movie of that row is; the end of the list for the number of rows.
    std::size_t listIndex(int row) const;
    /// What the column's heading sorts the list by; nothing for most.
    static std::optional<ListOrder::Key> sortKey(int column);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// Texts, and images as QImage at their full size; the titles' display text is the name, a line break, the path.
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// What the list shows of a collage, which the editor changes.
    struct Look {
        QImage imgPreview;
        std::int32_t rowNumber = 0;
        std::int32_t columeNumber = 0;
    };

private:
    const MovieList &aryItems;
    MovieFilter filter_;
    MovieList::Movies all_;
    MovieList::Movies shown_;
    std::vector<Look> looks_; // of the movies shown
};
