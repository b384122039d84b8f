#include "platform/threads/MainQueue.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

void MainQueue::async(Work work)
{
    const std::scoped_lock lock(mutex); // until the event is posted: it too goes from thread to thread
    waiting.push_back(std::move(work));
    if (!std::exchange(isWoken, true)) {
        QCoreApplication::postEvent(this, std::make_unique<QEvent>(QEvent::User).release()); // the event loop's now
    }
}

void MainQueue::customEvent(QEvent * /*event*/)
{
    workOff();
}

void MainQueue::workOff()
{
    std::unique_lock lock(mutex);
    isWoken = false;
    for (std::size_t left = waiting.size(); left > 0 && !waiting.empty(); --left) {
        Work work = std::move(waiting.front());
        waiting.pop_front();
        lock.unlock();
        work();
        work = nullptr; // what it holds goes without the lock too
        lock.lock();
    }
}
