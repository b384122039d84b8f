#pragma once

#include "platform/Result.h"
#include "platform/files/FileDescriptor.h"
#include "platform/threads/CancelFlag.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

#include <system_error>

/// A new file in the making, to be written to: hidden until it is published, so that its path never holds half a file,
/// even when the process is killed or the disk is full. Removed with its owner unless it was published, and by
/// removeLeftovers() when the process was killed. On one thread at a time.
class NewFile final : public QIODevice {
public:
    /// In the folder of `path`, open for writing; the permissions are those of any new file of this user. Once
    /// `cancelled` is set nothing more is written.
    NewFile(const QString &path, const CancelFlag &cancelled);
    ~NewFile() override;

    /// Why it could not be made or written, from the first failure on; nothing when all is well.
    std::error_code error() const { return problem_; }

    /// Gives it its name, the last of `path`, when all that was written is on the disk. An existing file is never
    /// replaced (std::errc::file_exists); another name can then be tried.
    Result<void, std::error_code> publishAs(const QString &path);

    qint64 size() const override { return length_; }

    /// Removes the hidden files that killed processes of this user have left in the folder.
    static void removeLeftovers(const QString &folder);

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 count) override;

private:
    int create();
    bool succeeded(bool isGood);
    bool keep();
    Result<void, std::error_code> giveName(const QByteArray &finalName);
    Result<void, std::error_code> renameWithoutReplacing(const QByteArray &finalName);
    Result<void, std::error_code> linkAs(const QByteArray &finalName);
    Result<void, std::error_code> renameOntoPlaceholder(const QByteArray &finalName);

    const CancelFlag &cancelled_;
    FileDescriptor folder_;
    QByteArray name_; ///< the hidden one; empty when there is none any more
    FileDescriptor file_;
    qint64 length_ = 0;
    std::error_code problem_;
};

/// Writes `contents` as a new file at `path`, all or nothing, never over another (std::errc::file_exists). Safe on any
/// thread.
Result<void, std::error_code> writeNewFile(const QString &path, const QByteArray &contents);
