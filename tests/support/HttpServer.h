#pragma once

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

/// A web server on the loopback, in the event loop of the test: keeps what it is asked, and answers as it is told.
class HttpServer : private QTcpServer {
public:
    /// Gets the whole request, and a client that stays until one of the two ends goes.
    using Respond = std::function<void(QTcpSocket &client, const QByteArray &request)>;

    explicit HttpServer(Respond answer) : respond(std::move(answer))
    {
        EXPECT_TRUE(listen(QHostAddress::LocalHost));
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket *client = nextPendingConnection()) {
                take(*client);
            }
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
    /// Answers with the status line's rest and the body.
    static Respond answering(const QByteArray &body, const QByteArray &status = "200 OK")
    {
        return saying("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" +
                      body);
    }
    /// A byte now and then, for ever.
    static void drip(QTcpSocket &client, const QByteArray & /*request*/)
    {
        client.write("HTTP/1.1 200 OK\r\n\r\n");
        auto *timer = new QTimer(&client);
        timer->callOnTimeout([&client] { client.write("x"); });
        timer->start(1);
    }

    QString url(const QString &host = QStringLiteral("127.0.0.1")) const
    {
        return QStringLiteral("http://%1:%2").arg(host).arg(serverPort());
    }
    const QByteArrayList &requests() const { return received; }
    int clientCount() const { return clients; }

private:
    void take(QTcpSocket &client)
    {
        ++clients;
        connect(&client, &QTcpSocket::disconnected, this, [this] { --clients; });
        connect(&client, &QTcpSocket::readyRead, this, [this, &client, request = QByteArray()]() mutable {
            request += client.readAll();
            const qsizetype head = request.indexOf("\r\n\r\n");
            const qsizetype lengthAt = request.indexOf("Content-Length: ");
            const qsizetype length = lengthAt < 0 ? 0 : request.mid(lengthAt + 16).split('\r').first().toLongLong();
            if (head >= 0 && request.size() >= head + 4 + length) {
                received.append(request);
                respond(client, request);
                request.clear();
            }
        });
    }

    Respond respond;
    QByteArrayList received;
    int clients = 0;
};
