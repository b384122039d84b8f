#include "prefs/panes/FolderTableModel.h"

#include "platform/files/PathText.h"

void FolderTableModel::reloadData(const QStringList &folders)
{
    if (folders == paths_) {
        return; // the selection stays
    }
    beginResetModel();
    paths_ = folders;
    endResetModel();
}

int FolderTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(paths_.size());
}

int FolderTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

QVariant FolderTableModel::data(const QModelIndex &index, int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::ToolTipRole;
    return isText && checkIndex(index, CheckIndexOption::IndexIsValid) ? PathText::forDisplay(paths_.at(index.row()))
                                                                       : QVariant();
}

QVariant FolderTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    //% "Folder"
    return qtTrId("trusted_folder_column");
}
