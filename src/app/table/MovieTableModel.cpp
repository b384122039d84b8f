#include "app/table/MovieTableModel.h"

#include "Shared/NumberText.h"
#include "Shared/PathParts.h"
#include "collage/KTMovieObject.h"
#include "platform/files/PathText.h"
#include "platform/widgets/ToolTipText.h"

#include <algorithm>
#include <array>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr double bitsPerKilobit = 1000.0;

using Look = MovieTableModel::Look;

QString shownName(const KTMovieObject &movie)
{
    return PathText::forDisplay(GlobalFun::lastPathComponent(movie.filePath));
}

QString title(const KTMovieObject &movie)
{
    return shownName(movie) + u'\n' + PathText::forDisplay(movie.filePath);
}

QString grids(const Look &look)
{
    return u"%1 * %2"_s.arg(look.rowNumber).arg(look.columeNumber);
}

QString description(const KTMovieObject &movie)
{
    return u"Resolution: %1 * %2\nData Rate:%3Kbps"_s.arg(movie.pixWidth)
        .arg(movie.pixHeight)
        .arg(GlobalFun::fixedText(movie.videoBitrate / bitsPerKilobit, 1));
}

/// One column: what it shows, its heading, what a screen reader says of a cell, and what a click on the heading does.
struct ColumnKind {
    QVariant (*value)(const KTMovieObject &movie, const Look &look);
    QString (*heading)();
    QString (*spoken)(const KTMovieObject &movie, const Look &look);
    std::optional<ListOrder::Key> sortKey = {};
    QString (*tip)() = [] { return QString(); };
};

const std::array<ColumnKind, MovieTableModel::ColumnCount> columns{{
    {[](const KTMovieObject &movie, const Look &) { return QVariant(movie.imgThumbnail()); },
     //% "Thumbnail"
     [] { return qtTrId("column_thumbnail"); },
     //% "Picture from %1"
     [](const KTMovieObject &movie, const Look &) { return qtTrId("cell_thumbnail").arg(shownName(movie)); }},
    {[](const KTMovieObject &, const Look &look) { return QVariant(look.imgPreview); },
     //% "Summary"
     [] { return qtTrId("column_summary"); },
     //% "Preview of the collage of %1"
     [](const KTMovieObject &movie, const Look &) { return qtTrId("cell_summary").arg(shownName(movie)); }},
    {[](const KTMovieObject &movie, const Look &) { return QVariant(title(movie)); },
     //% "Title"
     [] { return qtTrId("column_title"); }, [](const KTMovieObject &movie, const Look &) { return title(movie); },
     ListOrder::Key::Name,
     //% "Sorts the list by name"
     [] { return qtTrId("column_title_tip"); }},
    {[](const KTMovieObject &, const Look &look) { return QVariant(grids(look)); },
     //% "Grids"
     [] { return qtTrId("column_grids"); },
     [](const KTMovieObject &, const Look &look) {
         //% "Rows: %1, columns: %2"
         return qtTrId("cell_grids").arg(look.rowNumber).arg(look.columeNumber);
     }},
    {[](const KTMovieObject &movie, const Look &) { return QVariant(description(movie)); },
     //% "Description"
     [] { return qtTrId("column_description"); },
     [](const KTMovieObject &movie, const Look &) { return description(movie); }, ListOrder::Key::Resolution,
     //% "Sorts the list by resolution"
     [] { return qtTrId("column_description_tip"); }},
}};

const ColumnKind &kindOf(int column)
{
    return columns.at(static_cast<std::size_t>(column));
}

} // namespace

MovieTableModel::MovieTableModel(const MovieList &list, QObject *parent) : QAbstractTableModel(parent), aryItems(list)
{
}

void MovieTableModel::reloadData()
{
    beginResetModel();
    all_ = aryItems.snapshot();
    shown_.clear();
    std::ranges::copy_if(all_, std::back_inserter(shown_),
                         [this](const auto &movie) { return filter_.accepts(movie->filePath); });
    looks_.clear();
    for (const auto &movie : shown_) {
        const CollageSettings settings = movie->settings();
        looks_.push_back({movie->imgPreview(), settings.rowNumber, settings.columeNumber});
    }
    endResetModel();
}

std::size_t MovieTableModel::listIndex(int row) const
{
    const auto place =
        row < rowCount() ? std::ranges::find(all_, shown_.at(static_cast<std::size_t>(row))) : all_.end();
    return static_cast<std::size_t>(place - all_.begin());
}

std::optional<ListOrder::Key> MovieTableModel::sortKey(int column)
{
    return kindOf(column).sortKey;
}

int MovieTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int MovieTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant MovieTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const KTMovieObject &movie = *shown_.at(static_cast<std::size_t>(index.row()));
    const Look &look = looks_.at(static_cast<std::size_t>(index.row()));
    const ColumnKind &kind = kindOf(index.column());
    const bool isPicture = index.column() == Thumbnail || index.column() == Summary;
    switch (role) {
    case Qt::DisplayRole:
        return isPicture ? QVariant() : kind.value(movie, look);
    case Qt::DecorationRole:
        return isPicture ? kind.value(movie, look) : QVariant();
    case Qt::AccessibleTextRole:
        return kind.spoken(movie, look);
    case Qt::ToolTipRole:
        return index.column() == Title ? QVariant(plainToolTip(PathText::forDisplay(movie.filePath))) : QVariant();
    case Qt::TextAlignmentRole:
        return QVariant(index.column() == Grids ? Qt::AlignCenter : Qt::AlignVCenter | Qt::AlignLeft);
    default:
        return {};
    }
}

Qt::ItemFlags MovieTableModel::flags(const QModelIndex &index) const
{
    return QAbstractTableModel::flags(index) | Qt::ItemIsDragEnabled;
}

QVariant MovieTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return QVariant(section == Grids ? Qt::AlignCenter : Qt::AlignVCenter | Qt::AlignLeft);
    }
    if (role == Qt::ToolTipRole) {
        return kindOf(section).tip();
    }
    return role == Qt::DisplayRole ? QVariant(kindOf(section).heading()) : QVariant();
}
