#include "render/OutputFile.h"

#include "Shared/OutputName.h"
#include "Shared/PathParts.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"
#include "render/ImageFormats.h"

#include <climits>

namespace {

bool fitsFileSystem(const QString &path)
{
    return PathText::toBytes(GlobalFun::lastPathComponent(path)).size() <= NAME_MAX;
}

/// The movie's name without extension; a name that is nothing but an extension (".mp4") stays whole.
QString baseName(const QString &moviePath)
{
    const QString name = GlobalFun::lastPathComponent(moviePath);
    const QString base = GlobalFun::deletingPathExtension(name);
    return base.isEmpty() ? name : base;
}

void dropLastCharacter(QString &text)
{
    const bool isPair = text.size() >= 2 && text.back().isLowSurrogate() && text.at(text.size() - 2).isHighSurrogate();
    text.chop(isPair ? 2 : 1);
}

} // namespace

std::optional<QString> OutputFile::extensionForFormat(std::int64_t format)
{
    if (format < 0 || format >= std::ssize(imageFormats)) {
        return std::nullopt;
    }
    return imageFormats.at(static_cast<std::size_t>(format)).extension.toString();
}

QString OutputFile::freePath(const QString &folder, const QString &moviePath, const QString &extension)
{
    QString name = baseName(moviePath);
    for (;;) {
        const QString wanted = GlobalFun::appendingPathComponent(folder, name);
        QString path = GlobalFun::makeSureFullPathIdentical(wanted, extension);
        if (fitsFileSystem(path) || name.size() <= 1) {
            return path;
        }
        dropLastCharacter(name);
    }
}

bool OutputFile::isWritableFolder(const QString &folder)
{
    return FileSystem::isFolder(folder) && FileSystem::checkAccess(folder, W_OK | X_OK);
}
