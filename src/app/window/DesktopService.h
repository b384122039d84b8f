#pragma once

#include "platform/desktop/ActivationToken.h"
#include "platform/threads/MainQueue.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

/// The program on the session bus: the desktop hands it files and calls its window forward, and a second start hands
/// its files to the first and ends. Main thread.
///
/// Calls from the bus are taken on a thread of its own and wait there for the main thread, which may be busy for longer
/// than another start waits: while it builds the windows, and whenever many programs start at once. Each of those would
/// otherwise take this one for frozen, and open a window beside it.
class DesktopService final : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    /// What the desktop asks for. Called on the main thread, from the event loop or from setReady().
    struct Requests {
        /// Paths from the root, as PathText; never none. Then bring the window forward.
        std::function<void(const QStringList &paths, const ActivationToken &token)> open;
        std::function<void(const ActivationToken &token)> activate; ///< bring the window forward
    };

    enum class Outcome {
        First,      ///< this is the program that the desktop talks to
        HandedOver, ///< another one runs and has taken over the paths: end
        Alone,      ///< no bus, or the one that runs does not answer: go on, unknown to the desktop
    };

    /// The name is the one to have on the bus; a path on the bus follows from it. Calls are refused when one has been
    /// waiting for the main thread for `longestWait`, so that the caller starts a program of its own.
    DesktopService(QDBusConnection bus, QString name, Requests requests,
                   std::chrono::milliseconds longestWait = std::chrono::seconds(15));
    ~DesktopService() override;

    /// How long another start waits for the one that runs.
    struct Patience {
        std::chrono::milliseconds whenStopped = std::chrono::seconds(2); ///< with one that gets no processor time
        std::chrono::milliseconds whenBusy = std::chrono::seconds(20);   ///< with one that does; longer than a hang
    };

    /// Becomes the program of that name, or hands the paths (from the root, as PathText; none to bring the window
    /// forward) to the one that runs, with the token of this start. One that does not answer in time is taken for
    /// frozen.
    Outcome start(const QStringList &paths, const ActivationToken &token, const Patience &patience);
    Outcome start(const QStringList &paths, const ActivationToken &token = {}) { return start(paths, token, {}); }

    /// What has been asked for so far is passed on now, in order, and all else at once.
    void setReady();

    /// Leaves the bus, as the first step of quitting: a program that is started from now on opens its own window
    /// instead of handing its files to one that will not load them.
    void stop();

    // The calls of org.freedesktop.Application, by their names there; the main thread does them as soon as the program
    // is ready. Unknown actions are ignored.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void Activate(const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameters, const QVariantMap &platformData);

private:
    class Reception;
    struct Waiting {
        std::function<void()> request;
        std::chrono::steady_clock::time_point since;
    };

    QString objectPath() const;
    bool takeName();
    bool handOver(const QStringList &paths, const ActivationToken &token, const Patience &patience);
    void passOn(std::function<void()> request);
    void answerRequests();

    QDBusConnection bus_;
    QString name_;
    Requests requests_;
    bool isOnBus_ = false;
    const std::chrono::milliseconds longestWait_;
    std::mutex mutex_; ///< guards the two below
    bool isReady_ = false;
    std::vector<Waiting> waiting_;         ///< for the main thread, once the program is ready
    MainQueue mainQueue_;                  ///< requests are answered while it lives
    std::unique_ptr<Reception> reception_; ///< while on the bus; it uses all of the above
};
