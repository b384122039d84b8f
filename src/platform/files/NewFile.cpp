#include "platform/files/NewFile.h"

#include "platform/files/FileDescriptor.h"
#include "platform/files/PathText.h"

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
    if (place.name.isEmpty() || path.contains('\0')) { // a NUL would cut the name short
        return std::nullopt;
    }
    return place;
}

/// A hidden file of random name in a folder, removed with its owner unless it was given its final name.
class TemporaryFile {
public:
    explicit TemporaryFile(int folderDescriptor) : folder(folderDescriptor), file(create()) {}
    ~TemporaryFile()
    {
        if (!name.isEmpty()) {
            ::unlinkat(folder, name.constData(), 0);
        }
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    bool isOpen() const { return file.isOpen(); }
    bool fill(const QByteArray &contents);
    bool publishAs(const QByteArray &finalName);

private:
    int create();
    bool renameWithoutReplacing(const QByteArray &finalName);
    bool linkAs(const QByteArray &finalName);
    bool renameOntoPlaceholder(const QByteArray &finalName);

    int folder;
    QByteArray name;
    FileDescriptor file;
};

int TemporaryFile::create()
{
    for (;;) {
        // Short, whatever the final name's length: that may use up all of the 255 bytes a name can have.
        const QByteArray candidate = ".tessarine-" + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
        const int fd = ::openat(folder, candidate.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0) {
            name = candidate;
        }
        if (fd >= 0 || errno != EEXIST) {
            return fd;
        }
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
    // Some file systems report only at the close that they could not keep what was written.
    return ::fsync(file.get()) == 0 && ::close(file.release()) == 0;
}

/// False, with errno set, when something has that name already or the name cannot be given.
bool TemporaryFile::publishAs(const QByteArray &finalName)
{
    return renameWithoutReplacing(finalName) || linkAs(finalName) || renameOntoPlaceholder(finalName);
}

bool TemporaryFile::renameWithoutReplacing(const QByteArray &finalName)
{
    if (::renameat2(folder, name.constData(), folder, finalName.constData(), RENAME_NOREPLACE) != 0) {
        return false;
    }
    name.clear();
    return true;
}

/// For network file systems, which do not know the flag: a second name for the file refuses to replace as well.
bool TemporaryFile::linkAs(const QByteArray &finalName)
{
    const bool flagUnknown = errno == EINVAL || errno == ENOSYS;
    return flagUnknown && ::linkat(folder, name.constData(), folder, finalName.constData(), 0) == 0;
}

/// For memory sticks (exFAT) and their like, which know neither: the name is taken by an empty file first, so that
/// nobody else's is replaced.
bool TemporaryFile::renameOntoPlaceholder(const QByteArray &finalName)
{
    const bool linksUnknown = errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS;
    if (!linksUnknown) {
        return false;
    }
    const FileDescriptor placeholder(
        ::openat(folder, finalName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!placeholder.isOpen()) {
        return false;
    }
    if (::renameat(folder, name.constData(), folder, finalName.constData()) == 0) {
        name.clear();
        return true;
    }
    const int error = errno;
    ::unlinkat(folder, finalName.constData(), 0);
    errno = error;
    return false;
}

} // namespace

std::error_code writeNewFile(const QString &path, const QByteArray &contents)
{
    const auto place = placeOf(PathText::toBytes(path));
    if (!place) {
        return std::make_error_code(std::errc::invalid_argument);
    }
    const FileDescriptor folder(::open(place->folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) {
        return lastError();
    }
    TemporaryFile file(folder.get());
    if (!file.isOpen() || !file.fill(contents) || !file.publishAs(place->name)) {
        return lastError();
    }
    return {};
}
