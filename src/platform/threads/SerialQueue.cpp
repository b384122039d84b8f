#include "platform/threads/SerialQueue.h"

#include "platform/threads/AlternateStack.h"

#include <pthread.h>
#include <utility>

SerialQueue::SerialQueue(const QString &label) : thread([this] { workOff(); })
{
    constexpr qsizetype longestName = 15;
    pthread_setname_np(thread.native_handle(), label.toUtf8().left(longestName).constData());
}

SerialQueue::~SerialQueue()
{
    {
        const std::scoped_lock lock(mutex);
        ending = true;
    }
    changed.notify_one();
    thread.join();
}

void SerialQueue::async(Work work)
{
    {
        const std::scoped_lock lock(mutex);
        waiting.push_back(std::move(work));
    }
    changed.notify_one();
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
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return ending || !waiting.empty(); });
    if (waiting.empty()) {
        return {};
    }
    Work work = std::move(waiting.front());
    waiting.pop_front();
    return work;
}
