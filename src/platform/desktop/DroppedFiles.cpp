#include "platform/desktop/DroppedFiles.h"

#include "platform/Log.h"
#include "platform/MakeForQt.h"
#include "platform/files/FileUri.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QMimeData>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The kinds of data that are a key for the portal; the second is how older toolkits spell it.
const std::array<QString, 2> &keyFormats()
{
    static const std::array formats{u"application/vnd.portal.filetransfer"_s, u"application/vnd.portal.files"_s};
    return formats;
}

/// The local paths among the addresses that are dragged.
QStringList namedFiles(const QMimeData &data)
{
    QStringList paths;
    for (const QByteArray &line : data.data(u"text/uri-list"_s).split('\n')) {
        if (const auto path = FileUri::toPath(line.trimmed())) {
            paths += *path;
        }
    }
    return paths;
}

/// The key for the portal; empty when there is none.
QString transferKey(const QMimeData &data)
{
    constexpr qsizetype longest = 4096; // bytes; keys have a few dozen, and the bus limits a message
    for (const QString &format : keyFormats()) {
        const QByteArray bytes = data.data(format);
        const QByteArray key = bytes.first(std::min(bytes.size(), longest));
        if (const QByteArray text = key.split('\0').first(); !text.isEmpty()) { // often in C's form
            return QString::fromUtf8(text);
        }
    }
    return {};
}

QDBusMessage retrieveFiles(const QString &key)
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.freedesktop.portal.Documents"_s, u"/org/freedesktop/portal/documents"_s,
                                       u"org.freedesktop.portal.FileTransfer"_s, u"RetrieveFiles"_s);
    return call << key << QVariantMap();
}

/// What the portal lends; none, with a line in the log, when it fails.
QStringList lentFiles(const QDBusPendingReply<QStringList> &answer)
{
    if (answer.isError()) {
        qCWarning(lcTessarine).noquote() << "the portal does not hand over dropped files:" << answer.error().message();
        return {};
    }
    QStringList paths = answer.value();
    paths.removeIf([](const QString &path) { return !path.startsWith(u'/'); });
    return paths;
}

} // namespace

DroppedFiles::DroppedFiles() : bus_(QString()) {}

DroppedFiles::DroppedFiles(QDBusConnection bus, bool isSandboxed, std::chrono::milliseconds portalPatience) :
    bus_(std::move(bus)), isSandboxed_(isSandboxed), portalPatience_(portalPatience)
{
}

bool DroppedFiles::areIn(const QMimeData &data)
{
    const auto isOffered = [&data](const QString &format) { return data.hasFormat(format); };
    return std::ranges::any_of(keyFormats(), isOffered) || !namedFiles(data).isEmpty();
}

void DroppedFiles::fetch(const QMimeData &data, QObject &receiver, Taker taker) const
{
    const QStringList named = namedFiles(data);
    const QString key = isSandboxed_ || named.isEmpty() ? transferKey(data) : QString();
    if (key.isEmpty() || !bus_.isConnected()) { // a call without a bus would never come to an end
        taker(named);
    } else {
        askPortal(key, named, receiver, std::move(taker));
    }
}

void DroppedFiles::askPortal(const QString &key, const QStringList &named, QObject &receiver, Taker taker) const
{
    const int patience = static_cast<int>(portalPatience_.count());
    auto *watcher = makeForQt<QDBusPendingCallWatcher>(bus_.asyncCall(retrieveFiles(key), patience), &receiver);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &receiver,
                     [watcher, named, taker = std::move(taker)] {
                         watcher->deleteLater();
                         const QStringList lent = lentFiles(*watcher);
                         taker(lent.isEmpty() ? named : lent);
                     });
}
