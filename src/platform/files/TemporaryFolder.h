#pragma once

#include "platform/Result.h"
#include "platform/files/FileDescriptor.h"

#include <QString>

#include <system_error>

/// A folder of this process alone, removed with its owner. When the process was killed, a later start removes it: a
/// locked file in the folder shows whether its process still runs. To be made and used on one thread.
class TemporaryFolder {
public:
    /// Makes one in the folder `parent`, after it has removed there what killed processes of this user have left
    /// behind.
    static Result<TemporaryFolder, std::error_code> in(const QString &parent);
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder &&other) noexcept = default;
    TemporaryFolder &operator=(TemporaryFolder &&other) = delete;

    QString path() const;

private:
    TemporaryFolder(const QByteArray &folder, FileDescriptor lock);

    QByteArray folder_; ///< empty when another has taken it over
    FileDescriptor lock_;
};
