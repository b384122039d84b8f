#include "platform/files/FileSystem.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

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
