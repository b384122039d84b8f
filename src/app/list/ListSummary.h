#pragma once

#include "app/list/MovieList.h"

#include <QString>

/// What the status line says of the movies of a list: how many there are and how long they are together; empty for an
/// empty list. When fewer are shown, how many, and that the export makes all the same. Any thread.
QString listSummary(const MovieList::Movies &movies, std::size_t shown);
