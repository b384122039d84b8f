#include "Shared/FileHelper.h"

#include "Shared/FolderMaking.h"
#include "Shared/FolderWalk.h"
#include "Shared/PathParts.h"
#include "platform/files/FileDescriptor.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <QDir>
#include <QStandardPaths>
#include <QTimeZone>

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::StringLiterals;

namespace fs = std::filesystem;

namespace {

fs::path native(const QString &path)
{
    return PathText::toBytes(path).toStdString();
}

/// Whether `path` lies in `folder` or is it, whatever links lead there.
bool isWithin(const fs::path &path, const fs::path &folder)
{
    std::error_code error;
    const fs::path inner = fs::weakly_canonical(path, error);
    const fs::path outer = fs::weakly_canonical(folder, error);
    return std::ranges::mismatch(outer, inner).in1 == outer.end();
}

/// Copies with links as links; true when all of it was copied.
bool copyToNewPlace(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    if (isWithin(to, from)) { // the copy would go on for ever inside itself
        return false;
    }
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    return !error;
}

QString standardPath(QStandardPaths::StandardLocation location)
{
    return QStandardPaths::writableLocation(location);
}

} // namespace

bool FileHelper::fileExistsWithPath(const QString &path)
{
    return FileSystem::status(path).has_value();
}

bool FileHelper::directoryExistsWithPath(const QString &path)
{
    return fileExistsWithPath(path);
}

bool FileHelper::createFileWithPath(const QString &path)
{
    // Without O_NONBLOCK a FIFO at the path would wait for its reader.
    static constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC;
    return FileDescriptor(::open(PathText::toBytes(path).constData(), flags, 0666)).isOpen();
}

bool FileHelper::deleteFileWithPath(const QString &path)
{
    std::error_code error;
    const std::uintmax_t removed = fs::remove_all(native(path), error);
    return !error && removed > 0;
}

bool FileHelper::createDirectoryWithPath(const QString &path)
{
    return GlobalFun::MakeSureFolderExsist(path);
}

bool FileHelper::deleteDirectoryWithPath(const QString &path)
{
    return deleteFileWithPath(path);
}

void FileHelper::checkAndCreateFileAtPath(const QString &path, bool /*iCloud*/)
{
    if (!fileExistsWithPath(path)) {
        createDirectoryWithPath(path);
    }
}

std::uint64_t FileHelper::getFileSizeWithPath(const QString &path)
{
    const auto status = FileSystem::status(path);
    return status ? static_cast<std::uint64_t>(status->st_size) : 0;
}

std::optional<QDateTime> FileHelper::creationDate(const QString &path)
{
    struct statx status = {};
    if (::statx(AT_FDCWD, PathText::toBytes(path).constData(), 0, STATX_BTIME, &status) != 0 ||
        (status.stx_mask & STATX_BTIME) == 0) {
        return std::nullopt;
    }
    return QDateTime::fromSecsSinceEpoch(status.stx_btime.tv_sec, QTimeZone::utc())
        .addMSecs(status.stx_btime.tv_nsec / 1'000'000);
}

std::uint64_t FileHelper::getFileSystemFreeSize()
{
    std::error_code error;
    const fs::space_info space = fs::space(native(QDir::homePath()), error);
    return error ? 0 : space.available;
}

bool FileHelper::isDiskFull()
{
    return isDiskFull(getFileSystemFreeSize());
}

bool FileHelper::isDiskFull(std::uint64_t freeBytes)
{
    static constexpr std::int64_t threshold = 0x23000000;
    return static_cast<std::int64_t>(freeBytes) < threshold;
}

void FileHelper::moveFile(const QString &from, const QString &to)
{
    if (FileSystem::isTaken(to)) {
        return;
    }
    std::error_code error;
    fs::rename(native(from), native(to), error);
    if (error == std::errc::cross_device_link && copyToNewPlace(native(from), native(to))) {
        fs::remove_all(native(from), error);
    }
}

void FileHelper::copyFile(const QString &from, const QString &to)
{
    if (!FileSystem::isTaken(to)) {
        copyToNewPlace(native(from), native(to));
    }
}

std::optional<QString> FileHelper::findFile(const QString &folder, const QString &fileName)
{
    const QByteArray wanted = PathText::toBytes(fileName);
    const QByteArray start = PathText::toBytes(folder);
    std::optional<QString> found;
    const auto compare = [&](const FolderWalk::File &file) {
        if (found || file.name != wanted) {
            return;
        }
        if (file.depth == 0) {
            found = fileName;
            return;
        }
        const qsizetype firstName = start.size() + (start.endsWith('/') ? 0 : 1);
        found = PathText::fromBytes(file.path.left(file.path.indexOf('/', firstName))) + u'/' + fileName;
    };
    FolderWalk::walk(
        start, [&found] { return found.has_value(); }, compare);
    return found;
}

QString FileHelper::getDocumentsPath()
{
    return standardPath(QStandardPaths::DocumentsLocation);
}

QString FileHelper::getLibraryPath()
{
    return standardPath(QStandardPaths::GenericDataLocation);
}

QString FileHelper::getAppPath()
{
    return PathText::fromBytes(native(FileSystem::executablePath()).parent_path().c_str());
}

QString FileHelper::getTemporaryPath()
{
    return QDir::tempPath();
}

QString FileHelper::dataDirectory()
{
    return getDocumentsPath();
}

QString FileHelper::getDownloadListFile()
{
    return GlobalFun::appendingPathComponent(dataDirectory(), u"downloadlist"_s);
}

QString FileHelper::getDownloadMediaDirectory()
{
    return GlobalFun::appendingPathComponent(dataDirectory(), u"Caches/Media"_s);
}

QString FileHelper::getDownloadTempDirectory()
{
    return GlobalFun::appendingPathComponent(dataDirectory(), u"Caches/Temp"_s);
}

QString FileHelper::getADImagesPath()
{
    return getLibraryPath() + u"/Caches/AdImages"_s;
}

QString FileHelper::getLangConfigPath()
{
    const QString folder = getLibraryPath() + u"/Caches/lang"_s;
    createDirectoryWithPath(folder);
    return folder + u"/lang.dat"_s;
}

QString FileHelper::getPlistPath()
{
    return GlobalFun::appendingPathComponent(QDir::homePath(), u"Applications/Example.app/Contents/Info.plist"_s);
}
