#pragma once

#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMutex>
#include <QThread>

/// Another program on a test's bus. It answers each call by its member and keeps what it has been asked, on a thread of
/// its own: the test may block meanwhile.
class FakeService final : private QDBusVirtualObject {
public:
    FakeService(const SessionBus &sessionBus, const QString &name, const QVariantMap &answersByMember = {}) :
        answers(answersByMember), bus(sessionBus.connect())
    {
        moveToThread(&thread);
        thread.start();
        EXPECT_TRUE(bus.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath));
        EXPECT_TRUE(bus.registerService(name));
    }
    ~FakeService() override
    {
        bus.unregisterObject(QStringLiteral("/"), QDBusConnection::UnregisterTree);
        thread.quit();
        thread.wait();
    }

    QList<QDBusMessage> calls() const
    {
        const QMutexLocker lock(&mutex);
        return received;
    }

private:
    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const QMutexLocker lock(&mutex);
        received.append(message);
        const QVariant answer = answers.value(message.member());
        return connection.send(answer.isValid() ? message.createReply(answer) : message.createReply());
    }

    const QVariantMap answers;
    mutable QMutex mutex;
    QList<QDBusMessage> received;
    QThread thread;
    QDBusConnection bus;
};
