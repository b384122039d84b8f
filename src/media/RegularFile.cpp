#include "media/RegularFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <system_error>

namespace {

/// A file descriptor that closes itself.
class Descriptor {
public:
    explicit Descriptor(int opened) : number(opened) {}
    ~Descriptor()
    {
        if (number >= 0)
            ::close(number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    const int number;
};

RegularFileCheck failure(int error)
{
    return {QString::fromStdString(std::generic_category().message(error)), 0};
}

} // namespace

RegularFileCheck checkRegularFile(const QByteArray &path)
{
    if (path.contains('\0'))
        return failure(ENOENT); // the system would see another, shorter path

    const Descriptor file(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (file.number < 0)
        return failure(errno);

    struct stat status = {};
    if (::fstat(file.number, &status) != 0)
        return failure(errno);
    if (S_ISDIR(status.st_mode))
        return {QStringLiteral("is a folder"), 0};
    if (!S_ISREG(status.st_mode))
        return {QStringLiteral("is not a regular file"), 0};
    return {{}, status.st_size};
}
