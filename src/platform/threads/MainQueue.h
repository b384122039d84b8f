#pragma once

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

/// Work for the main thread, done by its event loop in the order given: the one way there from other threads. Made on
/// the main thread, and there it ends, perhaps in its own work; what is still waiting then is dropped undone.
class MainQueue final : private QObject {
public:
    using Work = std::function<void()>;

    MainQueue() = default;
    MainQueue(const MainQueue &) = delete;
    MainQueue &operator=(const MainQueue &) = delete;

    /// Puts the work, which must not throw, at the end of the queue and returns at once. On any thread.
    void async(Work work);

private:
    void customEvent(QEvent *event) override;
    /// Does what is waiting now; work that it adds waits for its own event, so that the user is not kept waiting.
    void workOff();

    // Work is kept here, under our own lock, and not in Qt's events: ThreadSanitizer does not see Qt's locks.
    std::mutex mutex_;
    std::deque<Work> waiting_;
    bool isWoken_ = false; ///< an event is on its way
};
