#include "Shared/MovieScan.h"

#include "Shared/PathParts.h"
#include "platform/files/PathText.h"

QStringList GlobalFun::fileListAtDirenctory(const QString &folder, const QStringList &filter,
                                            const CancelFlag &cancelled, const FolderWalk::TellLeftOut &tell)
{
    QStringList found;
    const auto keepMovie = [&found, &filter](const FolderWalk::File &file) {
        const QString extension = pathExtension(PathText::fromBytes(file.name));
        if (filter.contains(extension, Qt::CaseInsensitive)) {
            found.append(PathText::fromBytes(file.path));
        }
    };
    FolderWalk::walk(
        PathText::toBytes(folder), [&cancelled] { return cancelled.load(); }, keepMovie, tell);
    return found;
}
