#pragma once

#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <mutex>

/// Another program on a test's bus. It answers each call by its member and keeps what it has been asked, on a thread of
/// its own: the test may block meanwhile.
class FakeService final : private QDBusVirtualObject {
public:
    FakeService(const SessionBus &sessionBus, const char *name, const char *objectPath,
                const QVariantMap &answersByMember = {}) :
        answers(answersByMember), path(QString::fromLatin1(objectPath)), bus(sessionBus.connect())
    {
        moveToThread(&thread);
        thread.start();
        EXPECT_TRUE(bus.registerVirtualObject(path, this));
        EXPECT_TRUE(bus.registerService(QString::fromLatin1(name)));
    }
    ~FakeService() override
    {
        bus.unregisterObject(path);
        thread.quit();
        thread.wait();
        const std::scoped_lock lock(mutex); // ThreadSanitizer does not see the wait
    }

    QList<QDBusMessage> calls() const
    {
        const std::scoped_lock lock(mutex);
        return received;
    }

private:
    QString introspect(const QString & /*ofPath*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const std::scoped_lock lock(mutex);
        received.append(message);
        const QVariant answer = answers.value(message.member());
        return connection.send(answer.isValid() ? message.createReply(answer) : message.createReply());
    }

    const QVariantMap answers;
    const QString path;
    mutable std::mutex mutex;
    QList<QDBusMessage> received;
    QThread thread;
    QDBusConnection bus;
};

/// Another program on a test's bus that has frozen: it takes calls and never answers.
class FrozenService final {
public:
    FrozenService(const SessionBus &sessionBus, const char *name, const char *objectPath) :
        path(QString::fromLatin1(objectPath)), bus(sessionBus.connect())
    {
        object.moveToThread(&neverStarted);
        EXPECT_TRUE(bus.registerObject(path, &object, QDBusConnection::ExportAllSlots));
        EXPECT_TRUE(bus.registerService(QString::fromLatin1(name)));
    }
    ~FrozenService() { bus.unregisterObject(path); }
    Q_DISABLE_COPY(FrozenService)

private:
    const QString path;
    QThread neverStarted;
    QObject object;
    QDBusConnection bus;
};
