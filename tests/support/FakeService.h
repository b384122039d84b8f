#pragma once

#include "support/SessionBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

#include <mutex>

/// Another program on a test's bus. It answers each call by its member and keeps what it has been asked, on a thread of
/// its own: the test may block meanwhile.
class FakeService : private QDBusVirtualObject {
public:
    FakeService(const SessionBus &sessionBus, const char *name, const char *objectPath, const QVariantMap &answers = {},
                bool neverAnswers = false) :
        answers_(answers), isFrozen_(neverAnswers), path_(QString::fromLatin1(objectPath)), bus_(sessionBus.connect())
    {
        moveToThread(&thread_);
        thread_.start();
        EXPECT_TRUE(bus_.registerVirtualObject(path_, this));
        EXPECT_TRUE(bus_.registerService(QString::fromLatin1(name)));
    }
    ~FakeService() override
    {
        bus_.unregisterObject(path_);
        thread_.quit();
        thread_.wait();
        const std::scoped_lock lock(mutex_); // ThreadSanitizer does not see the wait
    }

    QList<QDBusMessage> calls() const
    {
        const std::scoped_lock lock(mutex_);
        return received_;
    }

    /// Sends a signal of its object.
    void emitSignal(const char *interface, const char *member, const QVariantList &arguments) const
    {
        QDBusMessage signal =
            QDBusMessage::createSignal(path_, QString::fromLatin1(interface), QString::fromLatin1(member));
        signal.setArguments(arguments);
        bus_.send(signal);
    }

private:
    QString introspect(const QString & /*ofPath*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const std::scoped_lock lock(mutex_);
        received_.append(message);
        if (isFrozen_) {
            return true;
        }
        const QVariant answer = answers_.value(message.member());
        return connection.send(answer.isValid() ? message.createReply(answer) : message.createReply());
    }

    const QVariantMap answers_;
    const bool isFrozen_;
    const QString path_;
    mutable std::mutex mutex_;
    QList<QDBusMessage> received_;
    QThread thread_;
    QDBusConnection bus_;
};

/// Another program on a test's bus that has frozen: it takes calls and never answers.
struct FrozenService final : FakeService {
    FrozenService(const SessionBus &sessionBus, const char *name, const char *objectPath) :
        FakeService(sessionBus, name, objectPath, {}, true)
    {
    }
};
