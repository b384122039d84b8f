#include "platform/MainQueue.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

void MainQueue::async(Work work)
{
    {
        const std::scoped_lock lock(mutex);
        waiting.push_back(std::move(work));
        if (std::exchange(isWoken, true)) {
            return;
        }
    }
    QCoreApplication::postEvent(this,
                                std::make_unique<QEvent>(QEvent::User).release()); // the event loop's from here on
}

bool MainQueue::event(QEvent *event)
{
    if (event->type() != QEvent::User) {
        return QObject::event(event);
    }
    workOff();
    return true;
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
