#include "platform/desktop/DesktopNotification.h"

#include "notificationportal.h"
#include "notifications.h"
#include "platform/MakeForQt.h"

#include <QBuffer>
#include <QDBusArgument>
#include <QDBusMetaType>

#include <utility>

using namespace Qt::StringLiterals;

/// A picture as the notification service takes it. Nobody sends one to this program.
struct RawPicture {
    QImage image;

    friend QDBusArgument &operator<<(QDBusArgument &argument, const RawPicture &picture)
    {
        const QImage &image = picture.image;
        argument.beginStructure();
        argument << image.width() << image.height() << static_cast<int>(image.bytesPerLine()) << true << 8 << 4
                 << QByteArray(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes());
        argument.endStructure();
        return argument;
    }
    friend const QDBusArgument &operator>>(const QDBusArgument &argument, RawPicture & /*picture*/) { return argument; }
};

/// An icon as the portal takes it.
struct SerializedIcon {
    QString kind;
    QDBusVariant data;

    friend QDBusArgument &operator<<(QDBusArgument &argument, const SerializedIcon &icon)
    {
        argument.beginStructure();
        argument << icon.kind << icon.data;
        argument.endStructure();
        return argument;
    }
    friend const QDBusArgument &operator>>(const QDBusArgument &argument, SerializedIcon & /*icon*/)
    {
        return argument;
    }
};

Q_DECLARE_METATYPE(RawPicture)
Q_DECLARE_METATYPE(SerializedIcon)

namespace {

constexpr int pictureSide = 256; // pixels: desktops show less
constexpr int untilItIsRead = -1;
const QString onlyMessage = u"export"_s;
const QString click = u"default"_s;

QImage fitted(const QImage &picture)
{
    return picture.scaled(pictureSide, pictureSide, Qt::KeepAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_RGBA8888);
}

QByteArray pngOf(const QImage &picture)
{
    QBuffer buffer;
    buffer.open(QBuffer::WriteOnly);
    picture.save(&buffer, "png");
    return buffer.data();
}

} // namespace

DesktopNotification::DesktopNotification(const QDBusConnection &sessionBus, QString identifier, bool sandboxed,
                                         Clicked clicked) :
    sessionBus_(sessionBus), identifier_(std::move(identifier)), sandboxed_(sandboxed), clicked_(std::move(clicked))
{
    qDBusRegisterMetaType<RawPicture>();
    qDBusRegisterMetaType<SerializedIcon>();
}

DesktopNotification::~DesktopNotification() = default;

void DesktopNotification::show(const QString &title, const QString &text, const QImage &picture)
{
    if (!sessionBus_.isConnected()) {
        return;
    }
    if (sandboxed_) {
        reachPortal();
        showByPortal(title, text, picture);
    } else {
        reachService();
        showByService(title, text, picture);
    }
}

void DesktopNotification::reachService()
{
    using Service = OrgFreedesktopNotificationsInterface;
    if (service_) {
        return;
    }
    service_ =
        std::make_unique<Service>(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s, sessionBus_);
    QObject::connect(service_.get(), &Service::ActivationToken, service_.get(), [this](uint id, const QString &token) {
        if (id == shown_) {
            click_ = {.token = token.toUtf8(), .startupId = token.toUtf8()};
        }
    });
    QObject::connect(service_.get(), &Service::ActionInvoked, service_.get(), [this](uint id, const QString &action) {
        if (id == shown_ && action == click) {
            clicked_(std::exchange(click_, {}));
        }
    });
}

void DesktopNotification::showByService(const QString &title, const QString &text, const QImage &picture)
{
    QVariantMap hints{{u"desktop-entry"_s, identifier_}};
    if (!picture.isNull()) {
        hints[u"image-data"_s] = QVariant::fromValue(RawPicture{fitted(picture)});
    }
    //% "Show"
    const QStringList actions{click, qtTrId("notification_show")};
    auto *watcher =
        makeForQt<QDBusPendingCallWatcher>(service_->Notify(u"Tessarine"_s, shown_, identifier_, title,
                                                            text.toHtmlEscaped(), actions, hints, untilItIsRead),
                                           service_.get());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, service_.get(), [this, watcher] {
        const QDBusPendingReply<uint> reply = *watcher;
        shown_ = reply.isError() ? 0 : reply.value();
        watcher->deleteLater();
    });
}

void DesktopNotification::reachPortal()
{
    using Portal = OrgFreedesktopPortalNotificationInterface;
    if (portal_) {
        return;
    }
    portal_ = std::make_unique<Portal>(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                       sessionBus_);
    QObject::connect(portal_.get(), &Portal::ActionInvoked, portal_.get(),
                     [this](const QString &id, const QString &action, const QVariantList &parameter) {
                         if (id != onlyMessage || action != click) {
                             return;
                         }
                         const QVariant data = parameter.isEmpty() ? QVariant() : parameter.first();
                         clicked_(ActivationToken::fromPlatformData(qdbus_cast<QVariantMap>(data)));
                     });
}

void DesktopNotification::showByPortal(const QString &title, const QString &text, const QImage &picture)
{
    QVariantMap message{{u"title"_s, title}, {u"body"_s, text}, {u"default-action"_s, click}};
    if (!picture.isNull()) {
        message[u"icon"_s] =
            QVariant::fromValue(SerializedIcon{.kind = u"bytes"_s, .data = QDBusVariant(pngOf(fitted(picture)))});
    }
    portal_->AddNotification(onlyMessage, message);
}
