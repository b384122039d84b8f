#include "online/HostLookup.h"

#include "platform/threads/AlternateStack.h"

#include <QByteArray>
#include <QUrl>

#include <mutex>
#include <netdb.h>
#include <system_error>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Result<QByteArrayList> addressesOf(const QByteArray &host)
{
    addrinfo hints = {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *list = nullptr;
    const int status = ::getaddrinfo(host.constData(), nullptr, &hints, &list);
    if (status != 0) {
        return failure(QString::fromLocal8Bit(host) + u": "_s + QString::fromLocal8Bit(::gai_strerror(status)));
    }
    QByteArrayList addresses;
    for (const addrinfo *each = list; each != nullptr; each = each->ai_next) {
        char text[NI_MAXHOST] = {};
        if (::getnameinfo(each->ai_addr, each->ai_addrlen, text, sizeof text, nullptr, 0, NI_NUMERICHOST) == 0) {
            addresses.append(each->ai_family == AF_INET6 ? '[' + QByteArray(text) + ']' : QByteArray(text));
        }
    }
    ::freeaddrinfo(list);
    return addresses;
}

} // namespace

/// What the asker and the thread share; the thread may well outlive the asker.
struct HostLookup::Question {
    QByteArray host;
    std::mutex mutex;
    HostLookup *asker; ///< nothing when nobody wants the answer any more

    void answer(const Result<QByteArrayList> &addresses)
    {
        const std::scoped_lock lock(mutex);
        if (asker != nullptr) {
            asker->answers_.async([callback = std::move(asker->found_), addresses] { callback(addresses); });
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
        question_->answer(failure(QString::fromLocal8Bit(refusal.what())));
    }
}

HostLookup::~HostLookup()
{
    const std::scoped_lock lock(question_->mutex);
    question_->asker = nullptr;
}
