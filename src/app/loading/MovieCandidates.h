#pragma once

#include "platform/threads/CancelFlag.h"

#include <QString>
#include <QStringList>

#include <functional>

/// Turns the paths that a user hands over into the list of files to try as movies.
namespace MovieCandidates {

/// Hears what an expansion meets besides candidates; every call may be left empty.
struct Events {
    /// The path could not be looked at, or the folder not be listed; `error` is for the user.
    std::function<void(const QString &path, const QString &error)> unreadable;
    /// A folder that is not searched again because too many links lead to it; its movies have been found.
    std::function<void(const QString &path)> linkedTooOften;
    /// A single .vob file, which is only taken where the user has allowed it.
    std::function<void(const QString &path)> vobRefused;
    /// A folder, listed or not.
    std::function<void(const QString &path)> folder;
    /// A folder that could be listed and holds no movies.
    std::function<void(const QString &path)> emptyFolder;
};

/// The candidates in the order of the paths. A folder gives the files in it and below it with one of the extensions;
/// any other path, a link to a folder included, is a candidate itself. Nothing is checked for being a movie, and a
/// file given twice counts twice. Setting `cancelled` ends it early.
QStringList expand(const QStringList &paths, const QStringList &extensions, bool acceptVob, const Events &events,
                   const CancelFlag &cancelled);

} // namespace MovieCandidates
