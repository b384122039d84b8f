#include "platform/files/NewFile.h"

#include "platform/files/FileLock.h"
#include "platform/files/PathText.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <initializer_list>
#include <optional>

namespace {

/// What a system call has just come to.
Result<void, std::error_code> done(bool isGood)
{
    if (!isGood) {
        return failure(lastError());
    }
    return {};
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

constexpr QByteArrayView prefix = ".tessarine-";

/// Independent of the final name, which may already have the 255 bytes that are allowed.
QByteArray randomName()
{
    return prefix.toByteArray() + QByteArray::number(QRandomGenerator::system()->generate64(), 36);
}

/// Whether randomName() can have made it. One in ten thousand of its names is shorter, and is not recognised.
bool isRandomName(QByteArrayView name)
{
    const QByteArrayView number = name.sliced(std::min(prefix.size(), name.size()));
    return name.startsWith(prefix) && number.size() >= 11 && number.size() <= 13 &&
           std::ranges::all_of(
               number, [](char digit) { return (digit >= '0' && digit <= '9') || (digit >= 'a' && digit <= 'z'); });
}

} // namespace

NewFile::NewFile(const QString &path, const CancelFlag &cancelled) : cancelled_(cancelled)
{
    const auto place = placeOf(PathText::toBytes(path));
    if (!place) {
        problem_ = std::make_error_code(std::errc::invalid_argument);
        return;
    }
    folder_.reset(::open(place->folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (succeeded(folder_.isOpen())) {
        file_.reset(create());
    }
    if (succeeded(file_.isOpen())) {
        open(WriteOnly | Unbuffered);
    }
}

NewFile::~NewFile()
{
    if (!name_.isEmpty()) {
        ::unlinkat(folder_.get(), name_.constData(), 0);
    }
}

/// True when all has gone well so far; otherwise the first problem is kept, by default the system's last one.
bool NewFile::succeeded(bool isGood)
{
    if (!isGood && !problem_) {
        problem_ = lastError();
    }
    return !problem_;
}

int NewFile::create()
{
    for (;;) {
        name_ = randomName();
        FileDescriptor made(::openat(folder_.get(), name_.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
        if (made.isOpen() && FileLock::take(made.get())) {
            return made.release();
        }
        // The name is taken; or another process has taken the file for a leftover, before it was locked.
        if (!made.isOpen() && errno != EEXIST) {
            name_.clear();
            return -1;
        }
    }
}

qint64 NewFile::readData(char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}

qint64 NewFile::writeData(const char *data, qint64 count)
{
    for (qint64 done = 0; done < count && !problem_;) {
        if (cancelled_) {
            problem_ = std::make_error_code(std::errc::operation_canceled);
            break;
        }
        const ssize_t written =
            ::pwrite(file_.get(), data + done, static_cast<std::size_t>(count - done), pos() + done);
        done += std::max<ssize_t>(written, 0);
        succeeded(written >= 0 || errno == EINTR);
    }
    length_ = std::max(length_, pos() + count);
    return problem_ ? -1 : count;
}

Result<void, std::error_code> NewFile::publishAs(const QString &path)
{
    if (isOpen() && succeeded(keep())) {
        close(); // for writers; the lock holds until the file has its name
    }
    const auto place = placeOf(PathText::toBytes(path));
    if (problem_) {
        return failure(problem_);
    }
    return place ? giveName(place->name) : failure(std::make_error_code(std::errc::invalid_argument));
}

/// Waits until the file is on the disk; false when that failed, for succeeded(). Some file systems report the failure
/// only when a descriptor is closed; some do not support waiting (EINVAL).
bool NewFile::keep()
{
    return (::fsync(file_.get()) == 0 || errno == EINVAL) && ::close(::fcntl(file_.get(), F_DUPFD_CLOEXEC, 0)) == 0;
}

/// Fails when something has that name already or the name cannot be given.
Result<void, std::error_code> NewFile::giveName(const QByteArray &finalName)
{
    auto given = renameWithoutReplacing(finalName);
    const auto failedBy = [&given](std::initializer_list<std::errc> errors) {
        return !given && std::ranges::any_of(errors, [&given](std::errc error) { return given.error() == error; });
    };
    if (failedBy({std::errc::invalid_argument, std::errc::function_not_supported})) {
        given = linkAs(finalName);
    }
    if (failedBy({std::errc::operation_not_permitted, std::errc::operation_not_supported,
                  std::errc::function_not_supported})) {
        given = renameOntoPlaceholder(finalName);
    }
    if (given) {
        name_.clear();
    }
    return given;
}

Result<void, std::error_code> NewFile::renameWithoutReplacing(const QByteArray &finalName)
{
    return done(::renameat2(folder_.get(), name_.constData(), folder_.get(), finalName.constData(), RENAME_NOREPLACE) ==
                0);
}

/// For network file systems, which do not know the flag: a second name for the file refuses to replace as well.
Result<void, std::error_code> NewFile::linkAs(const QByteArray &finalName)
{
    const auto linked = done(::linkat(folder_.get(), name_.constData(), folder_.get(), finalName.constData(), 0) == 0);
    if (linked) {
        ::unlinkat(folder_.get(), name_.constData(), 0);
    }
    return linked;
}

/// For memory sticks (exFAT) and their like, which know neither: the name is taken by an empty file first, so that
/// nobody else's is replaced.
Result<void, std::error_code> NewFile::renameOntoPlaceholder(const QByteArray &finalName)
{
    const FileDescriptor placeholder(
        ::openat(folder_.get(), finalName.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!placeholder.isOpen()) {
        return failure(lastError());
    }
    const auto renamed = done(::renameat(folder_.get(), name_.constData(), folder_.get(), finalName.constData()) == 0);
    if (!renamed) {
        ::unlinkat(folder_.get(), finalName.constData(), 0);
    }
    return renamed;
}

void NewFile::removeLeftovers(const QString &folder)
{
    std::error_code end;
    std::filesystem::directory_iterator entry(PathText::toBytes(folder).toStdString(), end);
    for (; entry != std::filesystem::directory_iterator(); entry.increment(end)) {
        const std::string path = entry->path().string();
        if (!isRandomName(entry->path().filename().string())) {
            continue;
        }
        const FileDescriptor file(::open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (FileLock::takeAbandoned(file.get())) {
            ::unlink(path.c_str());
        }
    }
}

Result<void, std::error_code> writeNewFile(const QString &path, const QByteArray &contents)
{
    static const CancelFlag never{false};
    NewFile file(path, never);
    if (!file.error()) {
        file.write(contents);
    }
    return file.publishAs(path);
}
