#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <chrono>
#include <functional>
#include <vector>

/// The program on the session bus: the desktop hands it files and calls its window forward, and a second start hands
/// its files to the first and ends. Main thread.
class DesktopService final : public QObject {
    Q_OBJECT

public:
    /// What the desktop asks for. Called on the main thread, from the event loop or from setReady().
    struct Requests {
        std::function<void(const QStringList &paths)> open; ///< paths from the root, as PathText; never none
        std::function<void()> activate;                     ///< bring the window forward
    };

    enum class Outcome {
        First,      ///< this is the program that the desktop talks to
        HandedOver, ///< another one runs and has taken over the paths: end
        Alone,      ///< no bus, or the one that runs does not answer: go on, unknown to the desktop
    };

    /// The name is the one to have on the bus; a path on the bus follows from it.
    DesktopService(QDBusConnection sessionBus, QString busName, Requests handlers);
    ~DesktopService() override;

    /// Becomes the program of that name, or hands the paths (from the root, as PathText; none to bring the window
    /// forward) to the one that runs. One that does not answer within `patience` is taken for frozen.
    Outcome start(const QStringList &paths, std::chrono::milliseconds patience = std::chrono::seconds(2));

    /// What has been asked for so far is passed on now, in order, and all else at once.
    void setReady();

    /// Leaves the bus, as the first step of quitting: files are no longer taken, and a program started now goes its own
    /// way instead of handing its files to one that will not load them.
    void stop();

    // The calls of org.freedesktop.Application, by their names there. Unknown actions are ignored.
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void Activate(const QVariantMap &platformData);
    void ActivateAction(const QString &action, const QVariantList &parameters, const QVariantMap &platformData);

private:
    QString objectPath() const;
    bool takeName();
    bool handOver(const QStringList &paths, std::chrono::milliseconds patience);
    void passOn(std::function<void()> request);

    QDBusConnection bus;
    QString name;
    Requests requests;
    bool isOnBus = false;
    bool isReady = false;
    std::vector<std::function<void()>> waiting; ///< until the program is ready
};
