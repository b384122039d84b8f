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

HttpExchange::HttpExchange(HttpRequest request, Callback callback, std::chrono::milliseconds timeout) :
    request_(std::move(request)), callback_(std::move(callback))
{
    deadline_.setSingleShot(true);
    QObject::connect(&deadline_, &QTimer::timeout, &receiver_, [this] { end(failure(u"no answer in time"_s)); });
    deadline_.start(timeout);
    if (!isWebAddress(request_.url)) {
        end(failure(u"not a web address: "_s + request_.url.toDisplayString()));
        return;
    }
    lookup_.emplace(request_.url.host(), [this](const Result<QByteArrayList> &addresses) {
        if (addresses) {
            addresses_ = *addresses;
            send();
        } else {
            end(failure(addresses.error()));
        }
    });
}

HttpExchange::~HttpExchange() = default;

void HttpExchange::send()
{
    transfer_.emplace(request_, addresses_, largestBody, [this](const Result<QByteArray> &body) { takeAnswer(body); });
}

void HttpExchange::takeAnswer(const Result<QByteArray> &body)
{
    const QUrl target = transfer_->redirection();
    const bool isRedirected = body && !target.isEmpty() && !request_.body;
    if (body && transfer_->status() >= 400) {
        end(failure(u"HTTP status %1"_s.arg(transfer_->status())));
    } else if (!isRedirected) {
        end(body);
    } else if (!haveOneOrigin(target, request_.url) || ++redirections_ > mostRedirections) {
        end(failure(u"the server redirects elsewhere, or without end"_s));
    } else {
        request_.url = target;
        send();
    }
}

void HttpExchange::end(const Result<QByteArray> &body)
{
    if (std::exchange(hasEnded_, true)) {
        return;
    }
    deadline_.stop();
    lookup_.reset();
    answer_.status = transfer_ ? transfer_->status() : 0;
    answer_.body = body;
    transfer_.reset();
    // Not from here: the callback may end this exchange, and with it whatever has just sent the signal.
    QMetaObject::invokeMethod(
        &receiver_, [this] { deliver(); }, Qt::QueuedConnection);
}

void HttpExchange::deliver()
{
    const HttpAnswer result = std::move(answer_);
    std::exchange(callback_, nullptr)(result);
}
