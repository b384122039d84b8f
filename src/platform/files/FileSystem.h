#pragma once

#include "platform/Result.h"
#include "platform/files/FileDescriptor.h"

#include <QByteArray>
#include <QString>

#include <sys/stat.h>
#include <unistd.h>

#include <optional>
#include <string_view>

/// The system's calls on files. Paths are those of PathText; nothing is found at a path with a NUL in it. Safe on any
/// thread.
namespace FileSystem {

/// What is at the path, links followed.
Result<struct stat, std::error_code> status(const QString &path);
/// The same of a link itself.
Result<struct stat, std::error_code> linkStatus(const QString &path);

/// Whether a folder can be reached at the path, links followed.
bool isFolder(const QString &path);

/// Whether a name is in use: by a link that leads nowhere too.
bool isTaken(const QString &path);

/// Whether this process may do that with what is at the path: R_OK, W_OK, X_OK or several.
Result<void, std::error_code> checkAccess(const QString &path, int access);

/// Opens a file or folder for reading. Does not wait for anything, such as the writer of a FIFO. Not open when that
/// failed.
FileDescriptor open(const QString &path);

/// All bytes of the file; nothing when it cannot be opened or holds more than `mostBytes`.
std::optional<QByteArray> contentsOf(const QString &path, qint64 mostBytes = qint64{256} << 20);

/// The path of the running program.
QString executablePath();

/// Writes all of the text to an open file; false when some of it is lost. Fit for signal handlers.
bool writeAll(int file, std::string_view text);

/// Replaces the file at the path by one with these contents. The new one is written at the `temporary` path, in the
/// same folder, and then renamed, so that there is always a whole file. False when that failed. Fit for signal
/// handlers.
bool replaceFile(const char *path, const char *temporary, std::string_view contents);

} // namespace FileSystem
