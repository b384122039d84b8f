#pragma once

#include "platform/Result.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QString>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

/// What is asked of a web server.
struct HttpRequest {
    QUrl url;                       ///< http or https
    std::optional<QByteArray> body; ///< with one it is a POST of UTF-8 text, without one a GET
};

/// One HTTP request without redirections, carried by libcurl in the event loop of the main thread. Its end closes the
/// connection at once, whatever the server is sending.
class WebTransfer {
public:
    /// Called once, from the event loop, with the whole body; may end the transfer.
    using Callback = std::function<void(const Result<QByteArray> &body)>;

    /// Starts it. `addresses` are those of the URL's host, which is not looked up again; an answer whose body is longer
    /// than `largestBody` bytes fails.
    WebTransfer(const HttpRequest &request, const QByteArrayList &addresses, qsizetype largestBody, Callback callback);
    ~WebTransfer();
    WebTransfer(const WebTransfer &) = delete;
    WebTransfer &operator=(const WebTransfer &) = delete;

    int status() const;       ///< the HTTP status; 0 before an answer
    QUrl redirection() const; ///< where the answer points to; empty when nowhere

private:
    class Carrier;
    const std::unique_ptr<Carrier> carrier_;
};
