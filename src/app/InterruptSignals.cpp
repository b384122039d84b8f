#include "app/InterruptSignals.h"

namespace {

// A signal handler reaches nothing but globals.
std::atomic<CancelFlag *> flagToSet{nullptr};
static_assert(decltype(flagToSet)::is_always_lock_free);

void onInterrupt(int /*signal*/)
{
    if (CancelFlag *flag = flagToSet.load()) {
        flag->store(true);
    }
}

} // namespace

InterruptSignals::InterruptSignals(CancelFlag &flag)
{
    flagToSet = &flag;
    handler.emplace(onInterrupt);
}

InterruptSignals::~InterruptSignals()
{
    handler.reset();
    flagToSet = nullptr;
}
