#include "platform/desktop/DesktopWorkspace.h"

#include "platform/Log.h"
#include "platform/MakeForQt.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FileUri.h"
#include "platform/files/PathText.h"
#include "platform/threads/MainQueue.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

void openPath(const QString &path)
{
    if (!QDesktopServices::openUrl(QUrl::fromEncoded(FileUri::fromPath(path)))) {
        qCWarning(lcTessarine).noquote() << "the desktop does not open" << PathText::forDisplay(path);
    }
}

QString folderOf(const QString &path)
{
    const QString folder = path.left(path.lastIndexOf(u'/'));
    return folder.isEmpty() ? u"/"_s : folder;
}

} // namespace

DesktopWorkspace::DesktopWorkspace(MainQueue &mainQueue, const QDBusConnection &sessionBus, bool sandboxed) :
    mainQueue_(mainQueue), sessionBus_(sessionBus), sandboxed_(sandboxed)
{
}

void DesktopWorkspace::openFile(const QString &path)
{
    onMainThread([path] { openPath(path); });
}

void DesktopWorkspace::revealFile(const QString &path)
{
    onMainThread([this, path] { sandboxed_ ? openDirectory(path) : showItems(path); });
}

void DesktopWorkspace::onMainThread(std::function<void()> work)
{
    mainQueue_.async([work = std::move(work), life = std::weak_ptr(alive_)] {
        if (!life.expired()) { // it ends on the main thread, where this runs
            work();
        }
    });
}

void DesktopWorkspace::showItems(const QString &path)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    message << QStringList{QString::fromLatin1(FileUri::fromPath(path))} << QString();
    callOrOpenFolder(message, path);
}

void DesktopWorkspace::openDirectory(const QString &path)
{
    const FileDescriptor file = FileSystem::open(path);
    if (!file.isOpen()) {
        openPath(folderOf(path));
        return;
    }
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.OpenURI"_s, u"OpenDirectory"_s);
    message << QString() << QVariant::fromValue(QDBusUnixFileDescriptor(file.get())) << QVariantMap();
    callOrOpenFolder(message, path);
}

void DesktopWorkspace::callOrOpenFolder(const QDBusMessage &message, const QString &path)
{
    auto *watcher = makeForQt<QDBusPendingCallWatcher>(sessionBus_.asyncCall(message), &context_);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context_, [watcher, path] {
        if (watcher->isError()) {
            openPath(folderOf(path));
        }
        watcher->deleteLater();
    });
}
