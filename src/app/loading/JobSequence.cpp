#include "app/loading/JobSequence.h"

#include <utility>

void JobSequence::add(Start start)
{
    if (running_) {
        waiting_.push_back(std::move(start));
        return;
    }
    running_ = true;
    start();
}

void JobSequence::finished()
{
    running_ = false;
    if (!waiting_.empty()) {
        Start next = std::move(waiting_.front());
        waiting_.pop_front();
        add(std::move(next));
    }
}
