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
    struct sigaction action = {};
    action.sa_handler = onInterrupt;
    action.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], nullptr, &before[index]);
        if (before[index].sa_handler != SIG_IGN) { // nohup, or a shell's background job
            sigaction(interrupts[index], &action, nullptr);
        }
    }
}

InterruptSignals::~InterruptSignals()
{
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], &before[index], nullptr);
    }
    flagToSet = nullptr;
}
