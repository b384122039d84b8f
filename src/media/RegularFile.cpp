#include "media/RegularFile.h"

#include "platform/files/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

using namespace Qt::StringLiterals;

namespace {

RegularFileCheck failure(int error)
{
    return {QString::fromStdString(std::generic_category().message(error)), 0};
}

} // namespace

RegularFileCheck checkRegularFile(const QByteArray &path)
{
    if (path.contains('\0')) {
        return failure(ENOENT); // the system would see another, shorter path
    }

    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        return failure(errno);
    }

    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) {
        return failure(errno);
    }
    if (S_ISDIR(status.st_mode)) {
        return {u"is a folder"_s, 0};
    }
    if (!S_ISREG(status.st_mode)) {
        return {u"is not a regular file"_s, 0};
    }
    return {{}, status.st_size};
}
