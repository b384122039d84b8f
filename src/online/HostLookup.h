#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <memory>

/// Finds out whether a host can be found by its name. Whoever wants to know owns it; main thread.
///
/// The system's resolver may take half a minute where the network swallows questions, and cannot be interrupted. It
/// works on a thread that nobody waits for: unlike QHostInfo, whose threads the application waits for at its end.
class HostLookup final : private QObject {
public:
    /// Called once, from the event loop, with the reason why the host was not found, or nothing; may end the lookup.
    using Callback = std::function<void(const QString &error)>;

    /// Starts the search for a name as it stands in a URL, or for an address.
    HostLookup(const QString &host, Callback callback);
    /// The callback is not called any more.
    ~HostLookup() override;
    HostLookup(const HostLookup &) = delete;
    HostLookup &operator=(const HostLookup &) = delete;

private:
    struct Question;

    void customEvent(QEvent *event) override;

    std::shared_ptr<Question> question; ///< shared with the thread
    Callback found;
};
