#include "media/RegularFile.h"

#include "platform/files/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

Result<std::int64_t> checkRegularFile(const QByteArray &path)
{
    if (path.contains('\0')) {
        return failure(inWords(
            std::make_error_code(std::errc::no_such_file_or_directory))); // the system would see another, shorter path
    }

    const FileDescriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file.isOpen()) {
        return failure(inWords(lastError()));
    }

    struct stat status = {};
    if (::fstat(file.get(), &status) != 0) {
        return failure(inWords(lastError()));
    }
    if (S_ISDIR(status.st_mode)) {
        return failure(u"is a folder"_s);
    }
    if (!S_ISREG(status.st_mode)) {
        return failure(u"is not a regular file"_s);
    }
    return status.st_size;
}
