#include "platform/files/FileSystem.h"

#include "platform/files/PathText.h"

#include <QFile>

#include <fcntl.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>

namespace {

/// The path for the system. Empty, so that nothing is found, for one with a NUL in it: the system would read only what
/// stands before that.
QByteArray native(const QString &path)
{
    return path.contains(QChar::Null) ? QByteArray() : PathText::toBytes(path);
}

} // namespace

Result<struct stat, std::error_code> FileSystem::status(const QString &path)
{
    struct stat found = {};
    if (::stat(native(path).constData(), &found) != 0) {
        return failure(lastError());
    }
    return found;
}

Result<struct stat, std::error_code> FileSystem::linkStatus(const QString &path)
{
    struct stat found = {};
    if (::lstat(native(path).constData(), &found) != 0) {
        return failure(lastError());
    }
    return found;
}

bool FileSystem::isFolder(const QString &path)
{
    const auto found = status(path);
    return found && S_ISDIR(found->st_mode);
}

bool FileSystem::isTaken(const QString &path)
{
    return linkStatus(path).has_value();
}

Result<void, std::error_code> FileSystem::checkAccess(const QString &path, int access)
{
    if (::faccessat(AT_FDCWD, native(path).constData(), access, AT_EACCESS) != 0) {
        return failure(lastError());
    }
    return {};
}

FileDescriptor FileSystem::open(const QString &path)
{
    return FileDescriptor(::open(native(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

std::optional<QByteArray> FileSystem::contentsOf(const QString &path, qint64 mostBytes)
{
    const FileDescriptor opened = open(path);
    QFile file;
    if (!opened.isOpen() || !file.open(opened.get(), QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    static constexpr qint64 chunkSize = qint64{64} << 10;
    QByteArray bytes;
    for (QByteArray chunk; bytes.size() <= mostBytes && !(chunk = file.read(chunkSize)).isEmpty();) {
        bytes += chunk;
    }
    return bytes.size() <= mostBytes ? std::optional(bytes) : std::nullopt;
}

QString FileSystem::executablePath()
{
    std::error_code error;
    return PathText::fromBytes(std::filesystem::read_symlink("/proc/self/exe", error).c_str());
}

bool FileSystem::writeAll(int file, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

bool FileSystem::replaceFile(const char *path, const char *temporary, std::string_view contents)
{
    const int file = ::open(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600);
    const bool kept = writeAll(file, contents) && ::fsync(file) == 0;
    const bool closed = ::close(file) == 0; // some file systems tell only now that they could not keep it
    if (kept && closed && ::rename(temporary, path) == 0) {
        return true;
    }
    ::unlink(temporary);
    return false;
}
