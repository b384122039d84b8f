#include "online/WebTransfer.h"

#include <QMetaObject>
#include <QSocketNotifier>
#include <QTimer>

#include <cstddef>
#include <curl/curl.h>
#include <unordered_map>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t largestHeader = 256 << 10; // bytes, of all lines

template<auto release>
struct Release {
    template<class Handle>
    void operator()(Handle *handle) const
    {
        release(handle);
    }
};

/// Lines that libcurl reads while a transfer lasts.
class LineList {
public:
    void append(const QByteArray &line)
    {
        curl_slist *longer = curl_slist_append(lines_.get(), line.constData());
        if (lines_ == nullptr) { // otherwise what is longer is the same list
            lines_.reset(longer);
        }
    }
    curl_slist *get() const { return lines_.get(); }

private:
    std::unique_ptr<curl_slist, Release<curl_slist_free_all>> lines_;
};

/// Tells when a socket can be read or written. It may be let go from what it has called.
class SocketWatch {
public:
    SocketWatch(curl_socket_t socket, const std::function<void(int events)> &ready) :
        reading_(notifier(socket, QSocketNotifier::Read)), writing_(notifier(socket, QSocketNotifier::Write))
    {
        QObject::connect(reading_.get(), &QSocketNotifier::activated, [ready] { ready(CURL_CSELECT_IN); });
        QObject::connect(writing_.get(), &QSocketNotifier::activated, [ready] { ready(CURL_CSELECT_OUT); });
    }

    /// `what` is a set of libcurl's CURL_POLL_ bits.
    void listen(int what)
    {
        reading_->setEnabled((what & CURL_POLL_IN) != 0);
        writing_->setEnabled((what & CURL_POLL_OUT) != 0);
    }

private:
    struct DeleteLater {
        void operator()(QSocketNotifier *notifier) const
        {
            notifier->setEnabled(false);
            notifier->disconnect();
            notifier->deleteLater();
        }
    };
    using Notifier = std::unique_ptr<QSocketNotifier, DeleteLater>;

    static Notifier notifier(curl_socket_t socket, QSocketNotifier::Type type)
    {
        return Notifier(std::make_unique<QSocketNotifier>(socket, type).release());
    }

    Notifier reading_;
    Notifier writing_;
};

} // namespace

/// libcurl's handles, and what they call.
class WebTransfer::Carrier {
public:
    Carrier(const HttpRequest &request, const QByteArrayList &addresses, qsizetype limit, Callback ended) :
        limit_(limit), sent_(request.body), ended_(std::move(ended))
    {
        timer_.setSingleShot(true);
        timer_.callOnTimeout([this] { proceed(CURL_SOCKET_TIMEOUT, 0); });
        setUp(request.url.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment), addresses);
        curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETFUNCTION, &watchSocket);
        curl_multi_setopt(multi_.get(), CURLMOPT_SOCKETDATA, this);
        curl_multi_setopt(multi_.get(), CURLMOPT_TIMERFUNCTION, &setTimer);
        curl_multi_setopt(multi_.get(), CURLMOPT_TIMERDATA, this);
        curl_multi_add_handle(multi_.get(), easy_.get());
    }
    ~Carrier() { curl_multi_remove_handle(multi_.get(), easy_.get()); }
    Carrier(const Carrier &) = delete;
    Carrier &operator=(const Carrier &) = delete;

    int status() const
    {
        long code = 0;
        curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &code);
        return static_cast<int>(code);
    }

    QUrl redirection() const
    {
        const char *address = nullptr;
        curl_easy_getinfo(easy_.get(), CURLINFO_REDIRECT_URL, &address);
        return QUrl::fromEncoded(QByteArray(address));
    }

private:
    template<class Value>
    void set(CURLoption option, Value value)
    {
        curl_easy_setopt(easy_.get(), option, value);
    }

    /// Says no more of the user and the machine than the request itself does.
    void setUp(const QUrl &url, const QByteArrayList &addresses)
    {
        const int usualPort = url.scheme() == u"https" ? 443 : 80;
        const QByteArray host = url.host(QUrl::FullyEncoded).toLatin1();
        hosts_.append(host + ':' + QByteArray::number(url.port(usualPort)) + ':' + addresses.join(','));
        headers_.append("Accept-Language: *");
        headers_.append("Accept-Encoding: identity"); // what is received is what counts against the limit
        set(CURLOPT_URL, url.toEncoded().constData());
        set(CURLOPT_RESOLVE, hosts_.get());
        set(CURLOPT_PROTOCOLS_STR, "http,https");
        set(CURLOPT_USERAGENT, "Tessarine");
        set(CURLOPT_PROXY, ""); // none, whatever the environment says
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_HEADERFUNCTION, &countHeader);
        set(CURLOPT_HEADERDATA, this);
        set(CURLOPT_WRITEFUNCTION, &take);
        set(CURLOPT_WRITEDATA, this);
        set(CURLOPT_ERRORBUFFER, reason_);
        if (sent_) {
            headers_.append("Content-Type: text/plain; charset=utf-8");
            headers_.append("Expect:"); // some servers cannot answer it
            set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(sent_->size()));
            set(CURLOPT_POSTFIELDS, sent_->constData());
        }
        set(CURLOPT_HTTPHEADER, headers_.get());
    }

    static int watchSocket(CURL * /*easy*/, curl_socket_t socket, int what, void *data, void * /*unused*/)
    {
        auto &self = *static_cast<Carrier *>(data);
        if (what == CURL_POLL_REMOVE) {
            self.watches_.erase(socket);
        } else {
            self.watches_.try_emplace(socket, socket, [&self, socket](int events) { self.proceed(socket, events); })
                .first->second.listen(what);
        }
        return 0;
    }

    static int setTimer(CURLM * /*multi*/, long milliseconds, void *data)
    {
        auto &self = *static_cast<Carrier *>(data);
        if (milliseconds < 0) {
            self.timer_.stop();
        } else {
            self.timer_.start(std::chrono::milliseconds(milliseconds));
        }
        return 0;
    }

    // Both get `count` pieces of one byte, and end the transfer by returning another number.

    static std::size_t countHeader(const char * /*line*/, std::size_t /*one*/, std::size_t count, void *data)
    {
        auto &self = *static_cast<Carrier *>(data);
        self.headerSize_ += count;
        return self.headerSize_ > largestHeader ? 0 : count;
    }

    static std::size_t take(const char *bytes, std::size_t /*one*/, std::size_t count, void *data)
    {
        auto &self = *static_cast<Carrier *>(data);
        self.received_.append(bytes, static_cast<qsizetype>(count));
        return self.received_.size() > self.limit_ ? 0 : count;
    }

    void proceed(curl_socket_t socket, int events)
    {
        int running = 0;
        curl_multi_socket_action(multi_.get(), socket, events, &running);
        int left = 0;
        const CURLMsg *message = curl_multi_info_read(multi_.get(), &left);
        if (message != nullptr && message->msg == CURLMSG_DONE) {
            // Not from here: whoever hears of it may end the transfer, and libcurl's caller with it.
            const Result<QByteArray> body = bodyAfter(message->data.result);
            QMetaObject::invokeMethod(
                &timer_, [this, body] { std::exchange(ended_, nullptr)(body); }, Qt::QueuedConnection);
        }
    }

    Result<QByteArray> bodyAfter(CURLcode result) const
    {
        if (result == CURLE_OK) {
            return received_;
        }
        if (headerSize_ > largestHeader || received_.size() > limit_) {
            return failure(u"the answer is too large"_s);
        }
        return failure(QString::fromUtf8(reason_[0] != '\0' ? reason_ : curl_easy_strerror(result)));
    }

    const qsizetype limit_;
    const std::optional<QByteArray> sent_;
    Callback ended_;
    QByteArray received_;
    std::size_t headerSize_ = 0;
    char reason_[CURL_ERROR_SIZE] = {};
    LineList headers_;
    LineList hosts_;
    QTimer timer_;
    std::unordered_map<curl_socket_t, SocketWatch> watches_;
    const std::unique_ptr<CURLM, Release<curl_multi_cleanup>> multi_{curl_multi_init()};
    const std::unique_ptr<CURL, Release<curl_easy_cleanup>> easy_{curl_easy_init()};
};

WebTransfer::WebTransfer(const HttpRequest &request, const QByteArrayList &addresses, qsizetype largestBody,
                         Callback callback) :
    carrier_(std::make_unique<Carrier>(request, addresses, largestBody, std::move(callback)))
{
}

WebTransfer::~WebTransfer() = default;

int WebTransfer::status() const
{
    return carrier_->status();
}

QUrl WebTransfer::redirection() const
{
    return carrier_->redirection();
}
