#pragma once

#include "platform/Result.h"
#include "platform/threads/MainQueue.h"

#include <QByteArrayList>
#include <QString>

#include <functional>
#include <memory>

/// Finds the addresses of a host by its name. Whoever wants to know owns it; main thread.
///
/// The system's resolver cannot be interrupted, and takes half a minute when the network does not answer. So it runs on
/// a thread that nobody waits for. The application would wait for the threads of QHostInfo when it ends.
class HostLookup final {
public:
    /// Called once, from the event loop, with numeric addresses, IPv6 ones in brackets; may end the lookup.
    using Callback = std::function<void(const Result<QByteArrayList> &addresses)>;

    /// Starts the search for a name as it stands in a URL, or for an address.
    HostLookup(const QString &host, Callback found);
    /// The callback is not called any more.
    ~HostLookup();
    HostLookup(const HostLookup &) = delete;
    HostLookup &operator=(const HostLookup &) = delete;

private:
    struct Question;

    std::shared_ptr<Question> question_; ///< shared with the thread
    Callback found_;
    MainQueue answers_;
};
