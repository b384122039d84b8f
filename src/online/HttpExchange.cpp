#include "online/HttpExchange.h"

#include <QMetaObject>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRedirections = 5;

bool haveOneOrigin(const QUrl &one, const QUrl &other)
{
    return one.scheme() == other.scheme() && one.host() == other.host() && one.port() == other.port();
}

} // namespace

bool isWebAddress(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty() && (url.scheme() == u"http"_s || url.scheme() == u"https"_s);
}

HttpExchange::HttpExchange(HttpRequest wanted, Callback wantsAnswer, std::chrono::milliseconds timeout) :
    request(std::move(wanted)), callback(std::move(wantsAnswer))
{
    deadline.setSingleShot(true);
    QObject::connect(&deadline, &QTimer::timeout, &receiver, [this] { end(u"no answer in time"_s); });
    deadline.start(timeout);
    if (!isWebAddress(request.url)) {
        end(u"not a web address: "_s + request.url.toDisplayString());
        return;
    }
    lookup.emplace(request.url.host(), [this](const HostAddresses &found) {
        if (found.error.isEmpty()) {
            addresses = found;
            send();
        } else {
            end(found.error);
        }
    });
}

HttpExchange::~HttpExchange() = default;

void HttpExchange::send()
{
    transfer.emplace(request, addresses.items, largestBody, [this](const QString &error) { takeAnswer(error); });
}

void HttpExchange::takeAnswer(const QString &error)
{
    const QUrl target = transfer->redirection();
    if (!error.isEmpty()) {
        end(error);
    } else if (transfer->status() >= 400) {
        end(u"HTTP status %1"_s.arg(transfer->status()));
    } else if (target.isEmpty() || request.body) {
        answer.body = transfer->body();
        end({});
    } else if (!haveOneOrigin(target, request.url) || ++redirections > mostRedirections) {
        end(u"the server redirects elsewhere, or without end"_s);
    } else {
        request.url = target;
        send();
    }
}

void HttpExchange::end(const QString &error)
{
    if (std::exchange(hasEnded, true)) {
        return;
    }
    deadline.stop();
    lookup.reset();
    answer.status = transfer ? transfer->status() : 0;
    answer.error = error;
    transfer.reset();
    // Not from here: the callback may end this exchange, and with it whatever has just sent the signal.
    QMetaObject::invokeMethod(
        &receiver, [this] { deliver(); }, Qt::QueuedConnection);
}

void HttpExchange::deliver()
{
    const HttpAnswer result = std::move(answer);
    std::exchange(callback, nullptr)(result);
}
