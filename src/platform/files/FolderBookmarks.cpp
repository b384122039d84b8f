#include "platform/files/FolderBookmarks.h"

#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {

QString encoded(const QString &path)
{
    return QString::fromLatin1(PathText::toBytes(path).toPercentEncoding("/"));
}

QString decoded(const QJsonObject &record, QLatin1StringView field)
{
    return PathText::fromBytes(QByteArray::fromPercentEncoding(record.value(field).toString().toLatin1()));
}

/// The record in the bytes when it is of this kind, else an empty one.
QJsonObject recordOf(const QByteArray &data, QLatin1StringView kind)
{
    const QJsonObject record = QJsonDocument::fromJson(data).object();
    return record.value("kind"_L1) == kind ? record : QJsonObject();
}

} // namespace

std::unique_ptr<FolderBookmarks> FolderBookmarks::ofThisSystem(const QDBusConnection &sessionBus,
                                                               const QString &sandboxMarker)
{
    if (!FileSystem::status(sandboxMarker)) {
        return std::make_unique<PathBookmarks>();
    }
    return std::make_unique<PortalBookmarks>(PortalBookmarks::mountPointOf(sessionBus));
}

std::optional<QByteArray> PathBookmarks::BookmarkDataForURL(const QString &folderPath) const
{
    const auto status = FileSystem::status(folderPath);
    if (!status) {
        return std::nullopt;
    }
    const QJsonObject record{
        {u"kind"_s, u"path"_s},
        {u"path"_s, encoded(folderPath)},
        {u"dev"_s, static_cast<qint64>(status->st_dev)},
        {u"inode"_s, static_cast<qint64>(status->st_ino)},
    };
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

std::optional<ResolvedFolder> PathBookmarks::resolve(const QByteArray &data) const
{
    const QString path = decoded(recordOf(data, "path"_L1), "path"_L1);
    if (path.isEmpty()) {
        return std::nullopt;
    }
    return ResolvedFolder{.path = path, .isStale = !FileSystem::status(path)};
}

PortalBookmarks::PortalBookmarks(const QString &mountPoint) :
    mount_(mountPoint.endsWith(u'/') ? mountPoint : mountPoint + u'/')
{
}

std::optional<QByteArray> PortalBookmarks::BookmarkDataForURL(const QString &folderPath) const
{
    const QString below = folderPath.startsWith(mount_) ? folderPath.sliced(mount_.size()) : QString();
    const QString id = below.section(u'/', 0, 0);
    const QString name = below.section(u'/', 1);
    if (id.isEmpty() || name.isEmpty()) {
        return PathBookmarks().BookmarkDataForURL(folderPath);
    }
    if (!FileSystem::status(folderPath)) {
        return std::nullopt;
    }
    const QJsonObject record{
        {u"kind"_s, u"doc"_s}, {u"id"_s, encoded(id)}, {u"name"_s, encoded(name)}, {u"path"_s, encoded(folderPath)}};
    return QJsonDocument(record).toJson(QJsonDocument::Compact);
}

std::optional<ResolvedFolder> PortalBookmarks::resolve(const QByteArray &data) const
{
    const QJsonObject record = recordOf(data, "doc"_L1);
    const QString id = decoded(record, "id"_L1);
    const QString name = decoded(record, "name"_L1);
    if (id.isEmpty() || name.isEmpty()) {
        return PathBookmarks().resolve(data);
    }
    // Not the recorded path: the mount point may be another one in this session.
    const QString path = mount_ + id + u'/' + name;
    return ResolvedFolder{.path = path, .isStale = !FileSystem::status(path)};
}

QString PortalBookmarks::mountPointOf(const QDBusConnection &sessionBus)
{
    constexpr int timeout = 2000; // milliseconds
    const QDBusMessage question =
        QDBusMessage::createMethodCall(u"org.freedesktop.portal.Documents"_s, u"/org/freedesktop/portal/documents"_s,
                                       u"org.freedesktop.portal.Documents"_s, u"GetMountPoint"_s);
    const QDBusMessage answer = sessionBus.call(question, QDBus::Block, timeout);
    QByteArray path = answer.arguments().value(0).toByteArray();
    if (path.endsWith('\0')) { // it is a file name in C's form
        path.chop(1);
    }
    if (answer.type() == QDBusMessage::ReplyMessage && path.startsWith('/')) {
        return PathText::fromBytes(path);
    }
    qCWarning(lcTessarine).noquote() << "the document portal does not say where it is:" << answer.errorMessage();
    return PathText::fromBytes(qgetenv("XDG_RUNTIME_DIR")) + u"/doc";
}
