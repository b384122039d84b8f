#include "platform/files/FileLock.h"

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

bool FileLock::take(int file)
{
    struct stat status = {};
    const bool isHeld = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    return !isHeld && ::fstat(file, &status) == 0 && status.st_nlink > 0;
}

bool FileLock::takeAbandoned(int file)
{
    struct stat status = {};
    return ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           ::flock(file, LOCK_EX | LOCK_NB) == 0;
}
