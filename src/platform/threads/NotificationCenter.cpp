#include "platform/threads/NotificationCenter.h"

#include <utility>

NotificationCenter::Observation NotificationCenter::observe(const QString &name, Handler handler)
{
    std::erase_if(entries_, [](const Entry &entry) { return entry.handler.expired(); });
    auto observation = std::make_shared<const Handler>(std::move(handler));
    entries_.push_back({name, observation});
    return observation;
}

void NotificationCenter::post(const QString &name)
{
    const std::vector<Entry> present = entries_; // handlers may observe, and so change the list
    for (const Entry &entry : present) {
        const Observation handler = entry.name == name ? entry.handler.lock() : nullptr;
        if (handler) {
            (*handler)();
        }
    }
}
