#include "online/HttpExchange.h"

#include "support/HttpServer.h"

#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace std::chrono_literals;

/// What an exchange comes to; nothing when it tells nothing in half a minute.
std::optional<HttpAnswer> answerTo(const HttpRequest &request, std::chrono::milliseconds timeout = 20s)
{
    std::optional<HttpAnswer> result;
    std::unique_ptr<HttpExchange> exchange;
    exchange = std::make_unique<HttpExchange>(
        request,
        [&](const HttpAnswer &answer) {
            exchange.reset(); // a callback may end its exchange
            result = answer;
        },
        timeout);
    EXPECT_TRUE(QTest::qWaitFor([&] { return exchange == nullptr; }, 30'000));
    return result;
}

struct Case {
    const char *name;
    HttpServer::Respond respond;
    bool succeeds;
    int status;
    qsizetype bodySize = 0;
    std::chrono::milliseconds timeout = 20s;
};

class HttpExchangeTest : public testing::TestWithParam<Case> {};

TEST_P(HttpExchangeTest, GivesTheWholeBodyOrAReason)
{
    const HttpServer server(GetParam().respond);
    const HttpRequest request{QUrl(server.url() + u"/page?a=b"), {}};
    const auto answer = answerTo(request, GetParam().timeout);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->error.isEmpty(), GetParam().succeeds) << qUtf8Printable(answer->error);
    EXPECT_FALSE(answer->error.contains(u'\x1b'));
    EXPECT_EQ(answer->status, GetParam().status);
    EXPECT_EQ(answer->body.size(), GetParam().bodySize);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.clientCount() == 0; })) << "the connection stays";
}

void redirectToOtherHost(QTcpSocket &client, const QByteArray &request)
{
    const QByteArray location = "http://localhost:" + QByteArray::number(client.localPort()) + "/elsewhere";
    HttpServer::saying("HTTP/1.1 302 Found\r\nLocation: " + location + "\r\nContent-Length: 0\r\n\r\n")(client,
                                                                                                        request);
}

void redirectToSelf(QTcpSocket &client, const QByteArray &request)
{
    const bool isBack = request.startsWith("GET /back ");
    HttpServer::saying(isBack ? "HTTP/1.1 200 OK\r\n\r\nhere"
                              : "HTTP/1.1 302 Found\r\nLocation: /back\r\nContent-Length: 0\r\n\r\n")(client, request);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, HttpExchangeTest,
    testing::Values(Case{"Body", HttpServer::answering("hello"), true, 200, 5},
                    Case{"NoBody", HttpServer::answering(""), true, 200},
                    Case{"UpToTheClose", HttpServer::saying("HTTP/1.0 200 OK\r\n\r\nhello"), true, 200, 5},
                    Case{"NotFound", HttpServer::answering("no", "404 \x1b[31mNo"), false, 404},
                    Case{"ServerError", HttpServer::answering("no", "500 Oops"), false, 500},
                    Case{"Login", HttpServer::saying("HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=\"x\"\r\n\r\n"),
                         false, 401},
                    Case{"Garbage", HttpServer::saying(QByteArray(5000, '\xff')), false, 0},
                    Case{"CutOff", HttpServer::saying("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nhello"), false, 200},
                    Case{"Largest", HttpServer::answering(QByteArray(1 << 20, 'x')), true, 200, 1 << 20},
                    Case{"TooLarge", HttpServer::answering(QByteArray(2 << 20, 'x')), false, 200},
                    Case{"Closed", HttpServer::saying(""), false, 0},
                    Case{"Silent", [](QTcpSocket &, const QByteArray &) {}, false, 0, 0, 200ms},
                    Case{"Drip", HttpServer::drip, false, 200, 0, 500ms},
                    Case{"OtherHost", redirectToOtherHost, false, 302}, Case{"SameHost", redirectToSelf, true, 200, 4}),
    [](const auto &param) { return param.param.name; });

TEST(HttpExchange, RefusesWhatIsNoWebAddress)
{
    for (const char *address : {"", "file:///etc/passwd", "data:,x", "http:///path", "ftp://127.0.0.1/",
                                "qrc:/Info.plist", "http://host.invalid/"}) {
        const auto answer = answerTo({QUrl(QLatin1StringView(address)), {}});
        ASSERT_TRUE(answer) << address;
        EXPECT_FALSE(answer->error.isEmpty()) << address;
        EXPECT_EQ(answer->status, 0) << address;
    }
}

TEST(HttpExchange, SaysNothingOfTheUser)
{
    const HttpServer server(
        HttpServer::saying("HTTP/1.1 401 No\r\nSet-Cookie: a=b\r\nWWW-Authenticate: Basic realm=\"x\"\r\n"
                           "Content-Length: 0\r\n\r\n"));
    QUrl url(server.url(QStringLiteral("user:secret@127.0.0.1")) + u"/page#part");
    answerTo({url, {}});
    answerTo({url, QByteArray("the text")});
    ASSERT_EQ(server.requests().size(), 2);
    EXPECT_TRUE(server.requests()[0].startsWith("GET /page HTTP/1.1\r\n")) << server.requests()[0].constData();
    EXPECT_TRUE(server.requests()[0].contains("Cache-Control: no-cache\r\n"));
    EXPECT_TRUE(server.requests()[1].startsWith("POST /page HTTP/1.1\r\n"));
    EXPECT_TRUE(server.requests()[1].endsWith("\r\n\r\nthe text"));
    for (const QByteArray &request : server.requests()) {
        EXPECT_FALSE(request.contains("Authorization") || request.contains("Cookie") || request.contains("Mozilla"));
        EXPECT_TRUE(request.contains("Accept-Language: *\r\n"));
    }
}

TEST(HttpExchange, EndsAtOnceWithItsOwner)
{
    const HttpServer server([](QTcpSocket &, const QByteArray &) {});
    bool isCalled = false;
    const auto note = [&](const HttpAnswer &) { isCalled = true; };
    std::optional<HttpExchange> exchange;
    exchange.emplace(HttpRequest{QUrl(server.url()), {}}, note, 20s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests().size() == 1; }));
    exchange.reset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.clientCount() == 0; }));
    // One that ends before its host is found, and one whose answer is on its way.
    exchange.emplace(HttpRequest{QUrl(server.url()), {}}, note, 20s);
    exchange.emplace(HttpRequest{QUrl(), {}}, note, 20s);
    exchange.reset();
    EXPECT_FALSE(answerTo({QUrl(), {}})->error.isEmpty());
    EXPECT_FALSE(isCalled);
}

} // namespace
