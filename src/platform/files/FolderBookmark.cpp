#include "platform/files/FolderBookmark.h"

#include "platform/files/PathText.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

std::optional<QByteArray> bookmarkData(const QString &folderPath)
{
    const QByteArray path = PathText::toBytes(folderPath);
    struct stat status = {};
    if (path.isEmpty() || path.contains('\0') || ::stat(path.constData(), &status) != 0) {
        return std::nullopt;
    }
    const QJsonObject record{
        {u"kind"_s, u"path"_s},
        {u"path"_s, QString::fromLatin1(path.toPercentEncoding("/"))},
        {u"dev"_s, static_cast<qint64>(status.st_dev)},
        {u"inode"_s, static_cast<qint64>(status.st_ino)},
    };
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}
