#include "app/loading/JobSequence.h"

#include <utility>

void JobSequence::add(Start start)
{
    if (running) {
        waiting.push_back(std::move(start));
        return;
    }
    running = true;
    start();
}

void JobSequence::finished()
{
    running = false;
    if (!waiting.empty()) {
        Start next = std::move(waiting.front());
        waiting.pop_front();
        add(std::move(next));
    }
}
