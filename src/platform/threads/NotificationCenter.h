#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

/// Passes on, by name, that something has happened, between objects that do not know each other. Main thread only.
class NotificationCenter {
public:
    using Handler = std::function<void()>;
    /// An observation lasts as long as this; it may outlive the centre.
    using Observation = std::shared_ptr<const Handler>;

    /// Calls the handler at each post of the name, until the last copy of the result is gone.
    [[nodiscard]] Observation observe(const QString &name, Handler handler);

    /// Calls the name's handlers in the order in which they came; one that ends before its turn is not called any more,
    /// one that comes meanwhile hears the next post.
    void post(const QString &name);

private:
    struct Entry {
        QString name;
        std::weak_ptr<const Handler> handler;
    };
    std::vector<Entry> entries_;
};
