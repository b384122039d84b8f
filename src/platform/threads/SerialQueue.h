#pragma once

#include <QString>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

/// Takes work from any thread and does it on a thread of its own, one piece after the other in the order given.
class SerialQueue {
public:
    using Work = std::function<void()>;

    /// The label names the thread for debuggers; the system keeps its first 15 bytes.
    explicit SerialQueue(const QString &label);
    /// Returns when all work is done, also what work in the queue adds meanwhile.
    ~SerialQueue();
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    /// Puts the work, which must not throw, at the end of the queue and returns at once. On any thread.
    void async(Work work);

private:
    void workOff();
    /// Waits for the next piece of work; an empty one is the sign to end.
    Work next();

    std::mutex mutex_; ///< guards the two below
    std::deque<Work> waiting_;
    bool ending_ = false;
    std::condition_variable changed_;
    std::thread thread_; ///< last: it uses all of the above
};
