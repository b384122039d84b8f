#include "online/HttpExchange.h"

#include <QMetaObject>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Says no more of the user and the machine than the request itself does: without these headers the toolkit would send
/// the user's language, and call itself a browser.
QNetworkRequest plainRequest(const HttpRequest &request)
{
    QNetworkRequest plain(request.url.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment));
    plain.setHeader(QNetworkRequest::UserAgentHeader, QByteArray("Tessarine"));
    plain.setRawHeader("Accept-Language", "*");
    plain.setRawHeader("Accept-Encoding", "identity"); // what is received is what counts against the limit
    plain.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    plain.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    plain.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    plain.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    plain.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    plain.setAttribute(QNetworkRequest::RedirectPolicyAttribute, request.body
                                                                     ? QNetworkRequest::ManualRedirectPolicy
                                                                     : QNetworkRequest::SameOriginRedirectPolicy);
    plain.setMaximumRedirectsAllowed(5);
    if (request.body) {
        plain.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("text/plain; charset=utf-8"));
    }
    return plain;
}

int statusOf(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

/// In our own words where the toolkit would quote the server's.
QString errorOf(const QNetworkReply &reply)
{
    if (reply.error() == QNetworkReply::NoError) {
        return {};
    }
    const int status = statusOf(reply);
    return status >= 400 ? u"HTTP status %1"_s.arg(status) : reply.errorString();
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
    // A host that is not found, or not soon, never gets as far as the toolkit, whose own search for it would hold up
    // the end of the program.
    lookup.emplace(request.url.host(), [this](const QString &error) {
        if (error.isEmpty()) {
            send();
        } else {
            end(error);
        }
    });
}

HttpExchange::~HttpExchange() = default;

void HttpExchange::send()
{
    manager.setProxy(QNetworkProxy::NoProxy);
    reply = request.body ? manager.post(plainRequest(request), *request.body) : manager.get(plainRequest(request));
    reply->setReadBufferSize(largestBody / 4); // a server that sends too much waits rather than fill the memory
    QObject::connect(reply, &QNetworkReply::readyRead, &receiver, [this] { receive(); });
    QObject::connect(reply, &QNetworkReply::finished, &receiver, [this] {
        receive();
        end(errorOf(*reply));
    });
}

void HttpExchange::receive()
{
    answer.body += reply->readAll();
    if (answer.body.size() > largestBody) {
        end(u"the answer is too large"_s);
    }
}

void HttpExchange::end(const QString &error)
{
    if (std::exchange(hasEnded, true)) {
        return;
    }
    deadline.stop();
    lookup.reset();
    if (reply != nullptr) {
        answer.status = statusOf(*reply);
        reply->disconnect(&receiver);
        reply->abort();
    }
    answer.error = error;
    if (!error.isEmpty()) {
        answer.body.clear();
    }
    // Not from here: the callback may end this exchange, and with it whatever has just sent the signal.
    QMetaObject::invokeMethod(
        &receiver, [this] { deliver(); }, Qt::QueuedConnection);
}

void HttpExchange::deliver()
{
    const HttpAnswer result = std::move(answer);
    std::exchange(callback, nullptr)(result);
}
