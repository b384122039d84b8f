#include "app/DesktopService.h"

#include "applicationadaptor.h"
#include "platform/FileUri.h"
#include "platform/Log.h"
#include "platform/PathText.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <array>

namespace {

const QString &interfaceName()
{
    static const QString name = QStringLiteral("org.freedesktop.Application");
    return name;
}

/// What lets the window come forward although the user has been elsewhere meanwhile: whoever started this program has
/// left it in the environment.
QVariantMap platformData()
{
    struct Token {
        const char *variable;
        QLatin1StringView key;
    };
    constexpr std::array tokens{Token{"XDG_ACTIVATION_TOKEN", QLatin1StringView("activation-token")},
                                Token{"DESKTOP_STARTUP_ID", QLatin1StringView("desktop-startup-id")}};
    QVariantMap data;
    for (const Token &token : tokens) {
        if (qEnvironmentVariableIsSet(token.variable)) {
            data.insert(token.key, qEnvironmentVariable(token.variable));
        }
    }
    return data;
}

QStringList urisOf(const QStringList &paths)
{
    QStringList uris;
    for (const QString &path : paths) {
        uris += QString::fromLatin1(FileUri::fromPath(path));
    }
    return uris;
}

} // namespace

DesktopService::DesktopService(QDBusConnection sessionBus, QString busName, Requests handlers) :
    bus(std::move(sessionBus)), name(std::move(busName)), requests(std::move(handlers))
{
    new ApplicationAdaptor(this);
}

DesktopService::~DesktopService()
{
    stop();
}

DesktopService::Outcome DesktopService::start(const QStringList &paths, std::chrono::milliseconds patience)
{
    // The object comes before the name: whoever finds the name may call at once.
    if (!bus.isConnected() || !bus.registerObject(objectPath(), this)) {
        return Outcome::Alone;
    }
    isOnBus = true;
    if (takeName()) {
        return Outcome::First;
    }
    if (handOver(paths, patience)) {
        stop();
        return Outcome::HandedOver;
    }
    if (takeName()) { // it has ended meanwhile
        return Outcome::First;
    }
    stop();
    qCWarning(lcTessarine) << "another Tessarine runs but does not answer; this one goes on by itself";
    return Outcome::Alone;
}

void DesktopService::setReady()
{
    isReady = true;
    for (const std::function<void()> &request : std::exchange(waiting, {})) {
        request();
    }
}

void DesktopService::Open(const QStringList &uris, const QVariantMap & /*platformData*/)
{
    QStringList paths;
    for (const QString &uri : uris) {
        if (const std::optional<QString> path = FileUri::toPath(uri.toUtf8())) {
            paths += *path;
        } else {
            qCWarning(lcTessarine).noquote() << "not a file on this machine:" << PathText::forDisplay(uri);
        }
    }
    if (!paths.isEmpty()) {
        passOn([this, paths] { requests.open(paths); });
    }
}

void DesktopService::Activate(const QVariantMap & /*platformData*/)
{
    passOn([this] { requests.activate(); });
}

void DesktopService::ActivateAction(const QString &action, const QVariantList & /*parameters*/,
                                    const QVariantMap & /*platformData*/)
{
    qCWarning(lcTessarine).noquote() << "the desktop asks for an unknown action:" << PathText::forDisplay(action);
}

/// Where the desktop looks for it, by the name.
QString DesktopService::objectPath() const
{
    return u'/' + QString(name).replace(u'.', u'/').replace(u'-', u'_');
}

bool DesktopService::takeName()
{
    const auto reply = bus.interface()->registerService(name, QDBusConnectionInterface::DontQueueService,
                                                        QDBusConnectionInterface::DontAllowReplacement);
    return reply == QDBusConnectionInterface::ServiceRegistered;
}

bool DesktopService::handOver(const QStringList &paths, std::chrono::milliseconds patience)
{
    const QString method = paths.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("Open");
    QDBusMessage call = QDBusMessage::createMethodCall(name, objectPath(), interfaceName(), method);
    call.setAutoStartService(false); // should it end now, this program takes its place, not a third one
    if (!paths.isEmpty()) {
        call << urisOf(paths);
    }
    call << platformData();
    const QDBusMessage reply = bus.call(call, QDBus::Block, static_cast<int>(patience.count()));
    return reply.type() == QDBusMessage::ReplyMessage;
}

void DesktopService::stop()
{
    if (std::exchange(isOnBus, false)) {
        bus.unregisterObject(objectPath());
        bus.unregisterService(name);
    }
}

void DesktopService::passOn(std::function<void()> request)
{
    if (isReady) {
        request();
    } else {
        waiting.push_back(std::move(request));
    }
}
