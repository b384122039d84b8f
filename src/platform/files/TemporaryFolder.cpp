#include "platform/files/TemporaryFolder.h"

#include "platform/files/FileLock.h"
#include "platform/files/PathText.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <utility>

namespace {

constexpr std::string_view prefix = "tessarine-";
constexpr std::string_view unique = "XXXXXX"; // what mkdtemp() replaces
constexpr int ownFile = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

/// The file in a folder that its process holds locked.
FileDescriptor openLock(const QByteArray &folder, int flags)
{
    const FileDescriptor at(::open(folder.constData(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return FileDescriptor(::openat(at.get(), "lock", flags, 0600));
}

void removeWithContents(const QByteArray &folder)
{
    std::error_code ignored;
    std::filesystem::remove_all(folder.toStdString(), ignored);
}

/// Follows no links, and touches nothing without a lock that its process has lost.
void removeLeftovers(const QString &parent)
{
    std::error_code end;
    std::filesystem::directory_iterator entry(PathText::toBytes(parent).toStdString(), end);
    for (; entry != std::filesystem::directory_iterator(); entry.increment(end)) {
        const std::string name = entry->path().filename().string();
        if (!name.starts_with(prefix) || name.size() != prefix.size() + unique.size()) {
            continue;
        }
        const auto path = QByteArray::fromStdString(entry->path().string());
        struct stat status = {};
        if (::lstat(path.constData(), &status) != 0 || !S_ISDIR(status.st_mode) || status.st_uid != ::geteuid()) {
            continue;
        }
        const FileDescriptor lock = openLock(path, ownFile);
        if (FileLock::takeAbandoned(lock.get())) {
            removeWithContents(path);
        }
    }
}

} // namespace

Result<TemporaryFolder, std::error_code> TemporaryFolder::in(const QString &parent)
{
    removeLeftovers(parent);
    for (;;) { // a start that cleans up may take the folder before it is locked
        QByteArray name = PathText::toBytes(parent) + '/' + QByteArray(prefix.data()) + unique.data();
        if (::mkdtemp(name.data()) == nullptr) {
            return failure(lastError());
        }
        FileDescriptor lock = openLock(name, ownFile | O_CREAT | O_EXCL);
        const std::error_code error = lock.isOpen() ? std::error_code() : lastError();
        if (!error && FileLock::take(lock.get())) {
            return TemporaryFolder(name, std::move(lock));
        }
        removeWithContents(name);
        if (error) {
            return failure(error);
        }
    }
}

TemporaryFolder::TemporaryFolder(const QByteArray &folder, FileDescriptor lock) :
    folder_(folder), lock_(std::move(lock))
{
}

TemporaryFolder::~TemporaryFolder()
{
    if (!folder_.isEmpty()) {
        removeWithContents(folder_);
    }
}

QString TemporaryFolder::path() const
{
    return PathText::fromBytes(folder_);
}
