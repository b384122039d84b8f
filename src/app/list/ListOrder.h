#pragma once

#include "app/list/MovieList.h"

#include <QCollator>

/// Orders of a list of movies, as values. Any thread.
namespace ListOrder {

/// What movies can be sorted by; the resolution is the number of pixels.
enum class Key { Name, Folder, Duration, Resolution, BitRate };

/// Compares names as people of this place do: numbers by their value, case and accents last.
QCollator collator(const QLocale &locale = QLocale::system().collation());

/// The movies in the order of the key. Those that are equal in it keep theirs, in both directions.
MovieList::Movies sorted(const MovieList::Movies &movies, Key key, Qt::SortOrder order,
                         const QCollator &collator = ListOrder::collator());

/// The movies with some of them put together before the one at `index` (the number of movies: at the end). Those keep
/// the order that they have in the list.
MovieList::Movies moved(const MovieList::Movies &movies, const MovieList::Movies &some, std::size_t index);

} // namespace ListOrder
