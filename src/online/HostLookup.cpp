#include "online/HostLookup.h"

#include "platform/MakeForQt.h"
#include "platform/threads/AlternateStack.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QEvent>
#include <QUrl>

#include <mutex>
#include <netdb.h>
#include <system_error>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

HostAddresses addressesOf(const QByteArray &host)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *list = nullptr;
    const int status = ::getaddrinfo(host.constData(), nullptr, &hints, &list);
    if (status != 0) {
        return {QString::fromLocal8Bit(host) + u": "_s + QString::fromLocal8Bit(::gai_strerror(status)), {}};
    }
    HostAddresses result;
    for (const addrinfo *each = list; each != nullptr; each = each->ai_next) {
        char text[NI_MAXHOST] = {};
        if (::getnameinfo(each->ai_addr, each->ai_addrlen, text, sizeof text, nullptr, 0, NI_NUMERICHOST) == 0) {
            result.items.append(each->ai_family == AF_INET6 ? '[' + QByteArray(text) + ']' : QByteArray(text));
        }
    }
    ::freeaddrinfo(list);
    return result;
}

} // namespace

/// What the asker and the thread share; the thread may well outlive the asker.
struct HostLookup::Question {
    QByteArray host;
    std::mutex mutex;
    HostLookup *asker; ///< nothing when nobody wants the answer any more
    HostAddresses addresses;

    void answer(const HostAddresses &found)
    {
        const std::scoped_lock lock(mutex);
        if (asker != nullptr) {
            addresses = found;
            QCoreApplication::postEvent(asker, makeForQt<QEvent>(QEvent::User));
        }
    }
};

HostLookup::HostLookup(const QString &host, Callback found) :
    question_(std::make_shared<Question>()), found_(std::move(found))
{
    question_->host = QUrl::toAce(host);
    if (question_->host.isEmpty()) {
        question_->host = host.toUtf8(); // an address
    }
    question_->asker = this;
    try {
        std::thread([shared = question_] {
            const AlternateStack stack;
            shared->answer(addressesOf(shared->host));
        }).detach();
    } catch (const std::system_error &refusal) {
        question_->answer({QString::fromLocal8Bit(refusal.what()), {}});
    }
}

HostLookup::~HostLookup()
{
    const std::scoped_lock lock(question_->mutex);
    question_->asker = nullptr;
}

void HostLookup::customEvent(QEvent * /*event*/)
{
    const Callback callback = std::exchange(found_, nullptr);
    std::unique_lock lock(question_->mutex);
    const HostAddresses addresses = question_->addresses;
    lock.unlock();
    callback(addresses); // last: it may end this
}
