#pragma once

#include <QByteArray>

#include <cstddef>
#include <functional>

/// Walks through everything below a folder, each folder's content at the place of the folder, in the order in which the
/// file system lists it. Links are followed; a folder inside itself (through a link) is not entered again, one that
/// many ways lead to is entered 64 times at most, and what cannot be read or reached is passed over. Paths are bytes.
/// Safe on any thread.
///
/// The system's own walks do not fit: those of the standard library enter folders inside themselves, and fts(3) asks
/// for the status of every file of a folder before it gives the first, a quarter of a second for 20,000 files.
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

enum class LeftOut { EnteredTooOften, PathTooLong };
/// Called for what is left out; once for a folder that is entered too often.
using TellLeftOut = std::function<void(const QByteArray &path, LeftOut why)>;

void walk(const QByteArray &folder, const Stop &stop, const Visit &visit, const TellLeftOut &tell = {});

} // namespace FolderWalk
