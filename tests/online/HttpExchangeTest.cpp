#include "online/HttpExchange.h"

#include "platform/MakeForQt.h"
#include "support/HttpServer.h"

#include <QTest>
#include <QTimer>

#include <memory>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

static HttpAnswer answerTo(const HttpRequest &request, std::chrono::milliseconds timeout = 20s)
{
    HttpAnswer result;
    std::unique_ptr<HttpExchange> exchange;
    const auto keep = [&](const HttpAnswer &answer) {
        exchange.reset(); // a callback may end its exchange
        result = answer;
    };
    exchange = std::make_unique<HttpExchange>(request, keep, timeout);
    EXPECT_TRUE(QTest::qWaitFor([&] { return exchange == nullptr; }, 30'000));
    return result;
}

static void drip(QTcpSocket &client, const QByteArray & /*request*/)
{
    client.write("HTTP/1.1 200 OK\r\n\r\n");
    auto *timer = makeForQt<QTimer>(&client);
    timer->callOnTimeout([&client] { client.write("x"); });
    timer->start(1);
}

/// Headers without end, as fast as they are taken.
static void flood(QTcpSocket &client, const QByteArray & /*request*/)
{
    const QByteArray lines = QByteArray("X-Line: 0123456789\r\n").repeated(1000);
    QObject::connect(&client, &QTcpSocket::bytesWritten, &client, [&client, lines] { client.write(lines); });
    client.write("HTTP/1.1 200 OK\r\n" + lines);
}

static HttpServer::Respond redirectingTo(const QByteArray &host)
{
    return [host](QTcpSocket &client, const QByteArray &request) {
        const QByteArray target = "http://" + host + ':' + QByteArray::number(client.localPort()) + "/end";
        const auto redirect = HttpServer::saying("HTTP/1.1 302 Found\r\nLocation: " + target + "\r\n\r\n");
        (request.contains("/end") ? HttpServer::answering("here") : redirect)(client, request);
    };
}

TEST(HttpExchange, GivesTheWholeBodyOrAReason)
{
    const QByteArray ok = "HTTP/1.1 200 OK\r\n";
    const struct {
        HttpServer::Respond respond;
        bool succeeds;
        int status;
        qsizetype bodySize = 0;
        std::chrono::milliseconds timeout = 20s;
    } cases[] = {
        {HttpServer::answering(QByteArray(1 << 20, 'x')), true, 200, 1 << 20},
        {HttpServer::saying(ok + "\r\nup to the end"), true, 200, 13},
        {HttpServer::saying(ok + "Content-Length: 9\r\n\r\ncut off"), false, 200},
        {HttpServer::answering("no", "404 \x1b[31mNo"), false, 404},
        {HttpServer::answering(QByteArray(2 << 20, 'x')), false, 200},
        {HttpServer::saying(QByteArray(5000, '\xff')), false, 0},
        {HttpServer::silent, false, 0, 0, 200ms},
        {drip, false, 200, 0, 1500ms},
        {flood, false, 200},
        {redirectingTo("127.0.0.1"), true, 200, 4},
        {redirectingTo("localhost"), false, 302},
    };
    for (const auto &[respond, succeeds, status, bodySize, timeout] : cases) {
        const HttpServer server(respond);
        const HttpAnswer answer = answerTo({QUrl(server.url()), {}}, timeout);
        EXPECT_EQ(answer.body.has_value(), succeeds);
        EXPECT_FALSE(!answer.body && answer.body.error().contains(u'\x1b'));
        EXPECT_EQ(answer.status, status);
        EXPECT_EQ(answer.body.value_or(QByteArray()).size(), bodySize);
        EXPECT_TRUE(QTest::qWaitFor([&] { return server.clientCount == 0; }));
    }
    for (const char *address : {"", "file:///etc/passwd", "data:,x", "http:///x", "http://h.invalid/"}) {
        EXPECT_FALSE(answerTo({QUrl(QLatin1StringView(address)), {}}).body) << address;
    }
}

TEST(HttpExchange, SaysNothingOfTheUser)
{
    const HttpServer server(HttpServer::saying("HTTP/1.1 401 No\r\nSet-Cookie: a=b\r\nContent-Length: 0\r\n"
                                               "WWW-Authenticate: Basic realm=\"x\"\r\n\r\n"));
    const QUrl url(server.url().replace(u"//"_s, u"//user:secret@"_s) + u"/page?a=b#part");
    answerTo({url, {}});
    answerTo({url, QByteArray("text")});
    ASSERT_EQ(server.requests.size(), 2);
    EXPECT_TRUE(server.requests[0].startsWith("GET /page?a=b HTTP/1.1\r\n"));
    EXPECT_TRUE(server.requests[1].startsWith("POST /page?a=b HTTP/1.1\r\n"));
    EXPECT_TRUE(server.requests[1].endsWith("\n\r\ntext"));
    for (const QByteArray &request : server.requests) {
        EXPECT_FALSE(request.contains("Authorization") || request.contains("Cookie") || request.contains("Mozilla"));
        EXPECT_TRUE(request.contains("Accept-Language: *\r\n"));
    }
}

TEST(HttpExchange, EndsAtOnceWithItsOwner)
{
    const HttpServer server(HttpServer::silent);
    const auto fail = [](const HttpAnswer &) { FAIL() << "called after its end"; };
    auto exchange = std::make_unique<HttpExchange>(HttpRequest{QUrl(server.url()), {}}, fail);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests.size() == 1; }));
    // Those end before their host is found, and with their answer under way.
    exchange = std::make_unique<HttpExchange>(HttpRequest{QUrl(server.url()), {}}, fail);
    exchange = std::make_unique<HttpExchange>(HttpRequest{QUrl(), {}}, fail);
    exchange.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.clientCount == 0; }));
}
