#include "platform/NewFile.h"

#include "platform/PathText.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <utility>

namespace {

std::error_code lastError()
{
    return {errno, std::generic_category()};
}

/// A file descriptor, closed with its owner.
class Descriptor {
public:
    explicit Descriptor(int number) : fd(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    bool isOpen() const { return fd >= 0; }
    int get() const { return fd; }
    /// False when the file system reports only now that it could not keep what was written.
    bool close() { return fd < 0 || ::close(std::exchange(fd, -1)) == 0; }

private:
    int fd;
};

/// The last component of a path and the folder it is in.
struct Place {
    QByteArray folder;
    QByteArray name;
};

/// Nothing for a path that names no file.
std::optional<Place> placeOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    const Place place{.folder = slash < 0 ? QByteArray(".") : path.first(qMax(slash, qsizetype(1))),
                      .name = path.sliced(slash + 1)};
    if (place.name.isEmpty() || path.contains('\0')) // a NUL would cut the name short
        return std::nullopt;
    return place;
}

/// A hidden file of random name in a folder, removed with its owner unless it was given its final name.
class TemporaryFile {
public:
    explicit TemporaryFile(int folderDescriptor) : folder(folderDescriptor), file(create()) {}
    ~TemporaryFile()
    {
        if (!name.isEmpty())
            ::unlinkat(folder, name.constData(), 0);
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    bool isOpen() const { return file.isOpen(); }
    bool fill(const QByteArray &contents);
    bool publishAs(const QByteArray &finalName);

private:
    int create();

    int folder;
    QByteArray name;
    Descriptor file;
};

int TemporaryFile::create()
{
    for (;;) {
        // Short, whatever the final name's length: that may use up all of the 255 bytes a name can have.
        const QByteArray candidate = ".tessarine-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
        const int fd = ::openat(folder, candidate.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0)
            name = candidate;
        if (fd >= 0 || errno != EEXIST)
            return fd;
    }
}

bool TemporaryFile::fill(const QByteArray &contents)
{
    for (QByteArrayView rest = contents; !rest.isEmpty();) {
        const ssize_t written = ::write(file.get(), rest.data(), static_cast<std::size_t>(rest.size()));
        if (written >= 0) {
            rest = rest.sliced(written);
        } else if (errno != EINTR) {
            return false;
        }
    }
    return ::fsync(file.get()) == 0 && file.close();
}

/// False, with errno set, when something has that name already or the name cannot be given.
bool TemporaryFile::publishAs(const QByteArray &finalName)
{
    if (::renameat2(folder, name.constData(), folder, finalName.constData(), RENAME_NOREPLACE) == 0) {
        name.clear();
        return true;
    }
    // Network file systems do not know the flag; a second name for the file refuses to replace as well.
    const bool flagUnknown = errno == EINVAL || errno == ENOSYS;
    return flagUnknown && ::linkat(folder, name.constData(), folder, finalName.constData(), 0) == 0;
}

} // namespace

std::error_code writeNewFile(const QString &path, const QByteArray &contents)
{
    const auto place = placeOf(PathText::toBytes(path));
    if (!place)
        return std::make_error_code(std::errc::invalid_argument);
    const Descriptor folder(::open(place->folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen())
        return lastError();
    TemporaryFile file(folder.get());
    if (!file.isOpen() || !file.fill(contents) || !file.publishAs(place->name))
        return lastError();
    return {};
}
