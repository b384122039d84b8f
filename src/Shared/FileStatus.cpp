#include "Shared/FileStatus.h"

#include "platform/files/FileDescriptor.h"
#include "platform/files/PathText.h"

#include <QFile>

#include <fcntl.h>

std::optional<struct stat> GlobalFun::fileStatus(const QString &path)
{
    struct stat status = {};
    if (path.contains(QChar::Null) || ::stat(PathText::toBytes(path).constData(), &status) != 0) {
        return std::nullopt;
    }
    return status;
}

bool GlobalFun::isTaken(const QString &path)
{
    struct stat status = {};
    return !path.contains(QChar::Null) && ::lstat(PathText::toBytes(path).constData(), &status) == 0;
}

std::optional<QByteArray> GlobalFun::contentsOf(const QString &path)
{
    const FileDescriptor opened(::open(PathText::toBytes(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    QFile file;
    if (!opened.isOpen() || !file.open(opened.get(), QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}
