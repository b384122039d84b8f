#pragma once

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

#include <optional>

/// Looks at the file system by PathText's paths, for this layer's own use. A path with a NUL in it names nothing. Safe
/// on any thread.
namespace GlobalFun {

/// What is at the path, links followed; nothing when nothing can be reached there.
std::optional<struct stat> fileStatus(const QString &path);

/// Whether a name is in use: by a link that leads nowhere too.
bool isTaken(const QString &path);

/// All bytes of the file; nothing when it cannot be opened.
std::optional<QByteArray> contentsOf(const QString &path);

} // namespace GlobalFun
