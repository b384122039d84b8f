#pragma once

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>

/// Plain operations on files and folders, and where the program's data live. Nothing here throws or logs; paths are
/// those of PathText. Safe on any thread. What the program does not call belongs to the vocabulary.
namespace FileHelper {

/// Whether a file or folder can be reached at the path, links followed.
bool fileExistsWithPath(const QString &path);
/// The same answer, so also true for a regular file; callers rely on that.
bool directoryExistsWithPath(const QString &path);

/// Makes an empty file, in place of one that is there.
bool createFileWithPath(const QString &path);
/// Removes a file, a link, or a folder with all that is in it; false when that failed or nothing was there.
bool deleteFileWithPath(const QString &path);
/// Makes the folder with all missing folders above it; true when it is there in the end.
bool createDirectoryWithPath(const QString &path);
bool deleteDirectoryWithPath(const QString &path);
/// Makes a folder, not a file, unless something is at the path. `iCloud` is not looked at.
void checkAndCreateFileAtPath(const QString &path, bool iCloud);

/// Bytes of the file; 0 when it cannot be read.
std::uint64_t getFileSizeWithPath(const QString &path);
/// When the file was made, in UTC; nothing when the file cannot be reached or its file system does not keep it.
std::optional<QDateTime> creationDate(const QString &path);

/// Bytes that are free where the home folder is; 0 when that cannot be told.
std::uint64_t getFileSystemFreeSize();
/// Whether less than 560 MiB are free there.
bool isDiskFull();
bool isDiskFull(std::uint64_t freeBytes);

/// Moves a file or folder to a new name, onto another file system too; never over something that is there.
void moveFile(const QString &from, const QString &to);
/// Copies a file or folder to a new name; never over something that is there.
void copyFile(const QString &from, const QString &to);

/// Looks for a file of this name in the folder and below. A hit in the folder itself gives the bare name; one below, at
/// any depth, the folder's subfolder on the way with the name appended. Nothing when there is none.
std::optional<QString> findFile(const QString &folder, const QString &fileName);

QString getDocumentsPath();
/// The user's data folder.
QString getLibraryPath();
/// The folder of the running executable.
QString getAppPath();
QString getTemporaryPath();
/// The user's documents folder.
QString dataDirectory();
QString getDownloadListFile();
QString getDownloadMediaDirectory();
QString getDownloadTempDirectory();
QString getADImagesPath();
/// Makes the folder that the file belongs into.
QString getLangConfigPath();
QString getPlistPath();

} // namespace FileHelper
