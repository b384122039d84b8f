#pragma once

#include "app/loading/MovieList.h"

#include <QAbstractTableModel>
#include <QImage>

/// What the table of movies shows: the list as it was at the last reloadData(), whatever other threads do to it since.
/// Owned by the main window; main thread.
class MovieTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { Thumbnail, Summary, Title, Grids, Description, ColumnCount };

    /// The list must outlive the model.
    explicit MovieTableModel(const MovieList &aryItems, QObject *parent = nullptr);

    /// Takes a new snapshot of the list.
    void reloadData();

    /// The movies shown, in order of the rows.
    const MovieList::Movies &movies() const { return shown; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// Texts, and images as QImage at their full size; the titles' display text is the name, a line break, the path.
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const MovieList &aryItems;
    MovieList::Movies shown;
};

/// What a column shows of a movie, by the column's identifier ("Thumbnail", "Summary", "Title", "Grids",
/// "Description"); nothing for any other.
QVariant objectValueForTableColumn(const QString &identifier, const KTMovieObject &movie);
