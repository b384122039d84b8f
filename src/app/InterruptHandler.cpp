#include "app/InterruptHandler.h"

#include <atomic>

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

// A signal handler reaches nothing but globals.
std::atomic<void (*)(int)> handlerToCall{nullptr};
std::atomic<Clock::rep> firstSignal{0}; ///< its time; 0 when there has been none
static_assert(decltype(handlerToCall)::is_always_lock_free && decltype(firstSignal)::is_always_lock_free);

void onSignal(int signal)
{
    const Clock::rep now = Clock::now().time_since_epoch().count();
    Clock::rep first = 0;
    if (!firstSignal.compare_exchange_strong(first, now) &&
        InterruptHandler::insists(signal, Clock::duration(now - first))) {
        InterruptHandler::die(signal);
    }
    if (const auto handler = handlerToCall.load()) {
        handler(signal);
    }
}

bool isIgnored(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler == SIG_IGN; // nohup, or a shell's background job
}

} // namespace

InterruptHandler::InterruptHandler(void (*handler)(int))
{
    handlerToCall = handler;
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], isIgnored(interrupts[index]) ? nullptr : &action, &before[index]);
    }
}

InterruptHandler::~InterruptHandler()
{
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], &before[index], nullptr);
    }
    handlerToCall = nullptr;
    firstSignal = 0;
}

sigset_t InterruptHandler::expectedInterrupts()
{
    sigset_t expected = {};
    ::sigemptyset(&expected);
    for (const int signal : interrupts) {
        if (!isIgnored(signal)) {
            ::sigaddset(&expected, signal);
        }
    }
    return expected;
}

bool InterruptHandler::insists(int signal, std::chrono::nanoseconds sinceFirst)
{
    return signal != SIGHUP && sinceFirst > 200ms;
}

void InterruptHandler::die(int signal)
{
    sigset_t only = {};
    ::sigemptyset(&only);
    ::sigaddset(&only, signal);
    std::signal(signal, SIG_DFL);
    ::pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    ::raise(signal);
}
