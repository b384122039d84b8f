#pragma once

#include <QByteArray>

#include <cstddef>
#include <functional>

/// Walks through everything below a folder, each folder's content at the place of the folder, in the order in which the
/// file system lists it. Links are followed; a folder inside itself (through a link) is not entered again, and what
/// cannot be read or reached is passed over. Paths are bytes. Safe on any thread.
namespace FolderWalk {

/// Something that is no folder.
struct File {
    QByteArray path;
    QByteArray name;
    std::size_t depth = 0; ///< 0 directly in the folder that the walk started from
};

/// Called at every entry, folders included, before anything is done with it; true ends the walk.
using Stop = std::function<bool()>;
/// Called for every file.
using Visit = std::function<void(const File &file)>;

void walk(const QByteArray &folder, const Stop &stop, const Visit &visit);

} // namespace FolderWalk
