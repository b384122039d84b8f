#pragma once

#include "online/HostLookup.h"
#include "online/WebTransfer.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <functional>
#include <optional>

/// Whether requests can be made of it: http or https, and a host.
bool isWebAddress(const QUrl &url);

/// What a request came to.
struct HttpAnswer {
    int status = 0;          ///< the HTTP status; 0 when no answer came
    Result<QByteArray> body; ///< all of it; a status of 400 and above is a failure
};

/// One request to a web server and its answer: from its construction to its callback, or to its end, which aborts the
/// request. Nothing is cached, and neither cookies nor passwords are sent. Whoever wants the answer owns it; main
/// thread.
class HttpExchange {
public:
    /// Called once, from the event loop; may end the exchange.
    using Callback = std::function<void(const HttpAnswer &)>;

    /// No answer may be larger, in bytes.
    static constexpr qint64 largestBody = 1 << 20;

    /// Sends the request. Everything, the search for the host included, has to be done within the time-out. A GET is
    /// redirected only to the same scheme, host and port, a POST never.
    HttpExchange(HttpRequest request, Callback callback, std::chrono::milliseconds timeout = std::chrono::seconds(15));
    HttpExchange(const HttpExchange &) = delete;
    HttpExchange &operator=(const HttpExchange &) = delete;
    ~HttpExchange();

private:
    void send();
    void takeAnswer(const Result<QByteArray> &body);
    /// Stops everything and has the callback called soon.
    void end(const Result<QByteArray> &body);
    void deliver();

    HttpRequest request_;
    Callback callback_;
    HttpAnswer answer_;
    std::optional<HostLookup> lookup_;
    QByteArrayList addresses_;
    std::optional<WebTransfer> transfer_;
    int redirections_ = 0;
    QTimer deadline_;
    bool hasEnded_ = false;
    QObject receiver_; ///< of all signals; goes first, so that none finds the rest half gone
};
