#include "online/HostLookup.h"

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

/// What the asker and the thread share; the thread may well outlive the asker.
struct HostLookup::Question {
    QByteArray host;
    std::mutex mutex;
    HostLookup *asker; ///< nothing when nobody wants the answer any more
    QString error;

    static QString errorOf(const QByteArray &host)
    {
        addrinfo hints = {};
        hints.ai_socktype = SOCK_STREAM;
        addrinfo *addresses = nullptr;
        const int status = ::getaddrinfo(host.constData(), nullptr, &hints, &addresses);
        if (status != 0) {
            return QString::fromLocal8Bit(host) + u": "_s + QString::fromLocal8Bit(::gai_strerror(status));
        }
        ::freeaddrinfo(addresses);
        return {};
    }

    void answer(const QString &text)
    {
        const std::scoped_lock lock(mutex);
        if (asker != nullptr) {
            error = text;
            QCoreApplication::postEvent(asker,
                                        std::make_unique<QEvent>(QEvent::User).release()); // the event loop's now
        }
    }
};

HostLookup::HostLookup(const QString &host, Callback callback) :
    question(std::make_shared<Question>()), found(std::move(callback))
{
    question->host = QUrl::toAce(host);
    if (question->host.isEmpty()) {
        question->host = host.toUtf8(); // an address
    }
    question->asker = this;
    try {
        std::thread([shared = question] {
            const AlternateStack stack;
            shared->answer(Question::errorOf(shared->host));
        }).detach();
    } catch (const std::system_error &refusal) {
        question->answer(QString::fromLocal8Bit(refusal.what()));
    }
}

HostLookup::~HostLookup()
{
    const std::scoped_lock lock(question->mutex);
    question->asker = nullptr;
}

void HostLookup::customEvent(QEvent * /*event*/)
{
    const Callback callback = std::exchange(found, nullptr);
    std::unique_lock lock(question->mutex);
    const QString error = question->error;
    lock.unlock();
    callback(error); // last: it may end this
}
