#pragma once

#include "platform/files/FileDescriptor.h"

#include <QString>

#include <system_error>

/// A folder of this process alone, removed with its owner, and by a later start when the process was killed: a locked
/// file in it tells that the process is still there. To be made and used on one thread.
class TemporaryFolder {
public:
    /// Makes it in the folder `parent`, after it has removed there what killed processes of this user have left behind.
    explicit TemporaryFolder(const QString &parent);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    /// Why there is none; nothing when all is well.
    std::error_code error() const { return problem_; }
    QString path() const;

private:
    bool make(const QByteArray &pattern);

    QByteArray folder_; ///< empty when there is none
    FileDescriptor lock_;
    std::error_code problem_;
};
