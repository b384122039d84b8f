#pragma once

#include <QAbstractTableModel>
#include <QStringList>

/// A table of folders with one column, their paths. Main thread.
class FolderTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// Shows these paths instead of those before.
    void reloadData(const QStringList &folders);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QStringList paths_;
};
