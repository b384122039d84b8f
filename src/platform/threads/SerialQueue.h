#pragma once

#include "platform/threads/DispatchQueue.h"

#include <QString>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

/// A queue with a thread of its own.
class SerialQueue final : public DispatchQueue {
public:
    /// The label names the thread for debuggers; the system keeps its first 15 bytes.
    explicit SerialQueue(const QString &label);
    /// Returns when all work is done, also what work in the queue adds meanwhile.
    ~SerialQueue() override;
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    void async(Work work) override;

private:
    void workOff();
    /// Waits for the next piece of work; an empty one is the sign to end.
    Work next();

    std::mutex mutex; ///< guards the two below
    std::deque<Work> waiting;
    bool ending = false;
    std::condition_variable changed;
    std::thread thread; ///< last: it uses all of the above
};
