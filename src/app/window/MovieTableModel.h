#pragma once

#include "app/list/MovieList.h"

#include <QAbstractTableModel>
#include <QImage>

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

    /// The movies shown, in order of the rows.
    const MovieList::Movies &movies() const { return shown_; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    /// Texts, and images as QImage at their full size; the titles' display text is the name, a line break, the path.
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// What the list shows of a collage, which the editor changes.
    struct Look {
        QImage imgPreview;
        std::int32_t rowNumber = 0;
        std::int32_t columeNumber = 0;
    };

private:
    const MovieList &aryItems;
    MovieList::Movies shown_;
    std::vector<Look> looks_; // of the movies shown
};
