#include "app/window/DesktopService.h"

#include "applicationadaptor.h"
#include "platform/Log.h"
#include "platform/MakeForQt.h"
#include "platform/files/FileUri.h"
#include "platform/files/PathText.h"
#include "platform/threads/AlternateStack.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <QThread>

#include <fstream>
#include <iterator>
#include <latch>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString &interfaceName()
{
    static const QString name = u"org.freedesktop.Application"_s;
    return name;
}

QStringList urisOf(const QStringList &paths)
{
    QStringList uris;
    for (const QString &path : paths) {
        uris += QString::fromLatin1(FileUri::fromPath(path));
    }
    return uris;
}

/// Whether the process is stopped or dead. Also true when that cannot be found out, as in a sandbox: a program that
/// runs answers in time.
bool isStopped(uint process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    const std::string line{std::istreambuf_iterator(file), {}};
    const std::size_t name = line.rfind(')'); // it may hold anything
    return name == std::string::npos || name + 2 >= line.size() ||
           std::string_view("TtZX").find(line[name + 2]) != std::string_view::npos;
}

} // namespace

/// Runs an object's events on a thread of its own for as long as it lives, then gives the object back to the thread
/// that it came from.
class DesktopService::Reception final : private QThread {
public:
    explicit Reception(QObject &service) : service_(service), origin_(service.thread())
    {
        service_.moveToThread(this);
        start();
    }
    ~Reception() override
    {
        quit();
        ended_.wait(); // what the thread has done is seen from here on
        wait();
    }

private:
    void run() override
    {
        const AlternateStack stack;
        exec();
        service_.moveToThread(origin_);
        ended_.count_down();
    }

    QObject &service_;
    QThread *const origin_;
    std::latch ended_{1};
};

DesktopService::DesktopService(QDBusConnection bus, QString name, Requests requests,
                               std::chrono::milliseconds longestWait) :
    bus_(std::move(bus)), name_(std::move(name)), requests_(std::move(requests)), longestWait_(longestWait)
{
    makeForQt<ApplicationAdaptor>(this);
}

DesktopService::~DesktopService()
{
    stop();
}

DesktopService::Outcome DesktopService::start(const QStringList &paths, const ActivationToken &token,
                                              const Patience &patience)
{
    // The object comes before the name, since calls may come as soon as the name is there.
    if (!bus_.isConnected() || !bus_.registerObject(objectPath(), this)) {
        return Outcome::Alone;
    }
    isOnBus_ = true;
    reception_ = std::make_unique<Reception>(*this);
    if (takeName()) {
        return Outcome::First;
    }
    if (handOver(paths, token, patience)) {
        stop();
        return Outcome::HandedOver;
    }
    if (takeName()) { // the other one has ended meanwhile
        return Outcome::First;
    }
    stop();
    qCWarning(lcTessarine) << "another Tessarine runs but does not answer; this one goes on by itself";
    return Outcome::Alone;
}

void DesktopService::setReady()
{
    {
        const std::scoped_lock lock(mutex_);
        isReady_ = true;
    }
    answerRequests();
}

void DesktopService::Open(const QStringList &uris, const QVariantMap &platformData)
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
        passOn(
            [this, paths, token = ActivationToken::fromPlatformData(platformData)] { requests_.open(paths, token); });
    }
}

void DesktopService::Activate(const QVariantMap &platformData)
{
    passOn([this, token = ActivationToken::fromPlatformData(platformData)] { requests_.activate(token); });
}

void DesktopService::ActivateAction(const QString &action, const QVariantList & /*parameters*/,
                                    const QVariantMap & /*platformData*/)
{
    qCWarning(lcTessarine).noquote() << "the desktop asks for an unknown action:" << PathText::forDisplay(action);
}

/// Where the desktop looks for it, by the name.
QString DesktopService::objectPath() const
{
    return u'/' + QString(name_).replace(u'.', u'/').replace(u'-', u'_');
}

bool DesktopService::takeName()
{
    const auto reply = bus_.interface()->registerService(name_, QDBusConnectionInterface::DontQueueService,
                                                         QDBusConnectionInterface::DontAllowReplacement);
    return reply == QDBusConnectionInterface::ServiceRegistered;
}

bool DesktopService::handOver(const QStringList &paths, const ActivationToken &token, const Patience &patience)
{
    const QString method = paths.isEmpty() ? u"Activate"_s : u"Open"_s;
    QDBusMessage call = QDBusMessage::createMethodCall(name_, objectPath(), interfaceName(), method);
    call.setAutoStartService(false); // if it ends now, this program takes its place
    if (!paths.isEmpty()) {
        call << urisOf(paths);
    }
    call << token.platformData();
    const QDBusPendingCall answer = bus_.asyncCall(call, static_cast<int>(patience.whenBusy.count()));
    const QDeadlineTimer soon(patience.whenStopped);
    while (!answer.isFinished() && !(soon.hasExpired() && isStopped(bus_.interface()->servicePid(name_)))) {
        std::this_thread::sleep_for(std::chrono::milliseconds(5)); // there is no event loop yet
    }
    return answer.isFinished() && !answer.isError();
}

void DesktopService::stop()
{
    if (std::exchange(isOnBus_, false)) {
        bus_.unregisterObject(objectPath());
        bus_.unregisterService(name_);
    }
    reception_.reset();
}

void DesktopService::passOn(std::function<void()> request)
{
    const auto now = std::chrono::steady_clock::now();
    const std::scoped_lock lock(mutex_);
    if (isReady_ && !waiting_.empty() && now - waiting_.front().since >= longestWait_) {
        qCWarning(lcTessarine) << "the window does not answer";
        if (calledFromDBus()) {
            sendErrorReply(QDBusError::NoReply, u"the window does not answer"_s);
        }
        return;
    }
    waiting_.push_back({std::move(request), now});
    if (isReady_) {
        mainQueue_.async([this] { answerRequests(); });
    }
}

void DesktopService::answerRequests()
{
    std::vector<Waiting> taken;
    {
        const std::scoped_lock lock(mutex_);
        taken.swap(waiting_);
    }
    for (const Waiting &each : taken) {
        each.request();
    }
}
