#include "platform/threads/MainQueue.h"

#include "platform/MakeForQt.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>

#include <utility>

void MainQueue::async(Work work)
{
    const std::scoped_lock lock(mutex_); // until the event is posted, for ThreadSanitizer's sake too
    waiting_.push_back(std::move(work));
    if (!std::exchange(isWoken_, true)) {
        QCoreApplication::postEvent(this, makeForQt<QEvent>(QEvent::User));
    }
}

void MainQueue::customEvent(QEvent * /*event*/)
{
    workOff();
}

void MainQueue::workOff()
{
    const QPointer<QObject> life(this);
    std::unique_lock lock(mutex_);
    isWoken_ = false;
    for (std::size_t left = waiting_.size(); left > 0 && !waiting_.empty(); --left) {
        Work work = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        work();
        work = nullptr; // what it holds goes without the lock too
        if (life.isNull()) {
            return; // the work has ended this queue
        }
        lock.lock();
    }
}
