#pragma once

#include <QTcpServer>
#include <QTcpSocket>

#include <gtest/gtest.h>

#include <functional>

/// A web server on the loopback, in the event loop of the test: keeps what it is asked, and answers as it is told.
class HttpServer : private QTcpServer {
public:
    using Respond = std::function<void(QTcpSocket &client, const QByteArray &request)>;

    explicit HttpServer(const Respond &respond)
    {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this, respond] {
            QTcpSocket *client = nextPendingConnection();
            ++clientCount;
            connect(client, &QTcpSocket::disconnected, this, [this] { --clientCount; });
            connect(client, &QTcpSocket::readyRead, this, [this, client, respond, request = QByteArray()]() mutable {
                request += client->readAll();
                const qsizetype head = request.indexOf("\r\n\r\n");
                const qsizetype length = request.indexOf("Content-Length: ") + 16;
                const qsizetype body = length < 16 ? 0 : request.mid(length).split('\r').first().toLongLong();
                if (head >= 0 && request.size() == head + 4 + body) {
                    requests.append(request);
                    respond(*client, request);
                    request.clear();
                }
            });
        });
    }

    /// Says these bytes and closes.
    static Respond saying(const QByteArray &bytes)
    {
        return [bytes](QTcpSocket &client, const QByteArray & /*request*/) {
            client.write(bytes);
            client.disconnectFromHost();
        };
    }
    static Respond answering(const QByteArray &body, const QByteArray &status = "200 OK")
    {
        const QByteArray length = QByteArray::number(body.size());
        return saying("HTTP/1.1 " + status + "\r\nContent-Length: " + length + "\r\n\r\n" + body);
    }
    /// Waits for the other end to go.
    static void silent(QTcpSocket & /*client*/, const QByteArray & /*request*/) {}

    QString url() const { return QStringLiteral("http://127.0.0.1:%1").arg(serverPort()); }

    QByteArrayList requests;
    int clientCount = 0;
};
