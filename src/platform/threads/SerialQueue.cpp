#include "platform/threads/SerialQueue.h"

#include "platform/threads/AlternateStack.h"

#include <pthread.h>
#include <utility>

SerialQueue::SerialQueue(const QString &label) : thread_([this] { workOff(); })
{
    constexpr qsizetype longestName = 15;
    pthread_setname_np(thread_.native_handle(), label.toUtf8().left(longestName).constData());
}

SerialQueue::~SerialQueue()
{
    {
        const std::scoped_lock lock(mutex_);
        ending_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void SerialQueue::async(Work work)
{
    {
        const std::scoped_lock lock(mutex_);
        waiting_.push_back(std::move(work));
    }
    changed_.notify_one();
}

void SerialQueue::workOff()
{
    const AlternateStack stack;
    while (const Work work = next()) {
        work();
    }
}

SerialQueue::Work SerialQueue::next()
{
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
    if (waiting_.empty()) {
        return {};
    }
    Work work = std::move(waiting_.front());
    waiting_.pop_front();
    return work;
}
