#include "app/InterruptSignals.h"

#include "platform/threads/AlternateStack.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <semaphore.h>
#include <system_error>
#include <utility>

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

// Global, since a signal handler gets no object.
sem_t signalsToTell;
std::atomic<Clock::rep> firstSignal{0}; ///< its time; 0 when there has been none
static_assert(decltype(firstSignal)::is_always_lock_free);

/// Whether a further signal, so long after the first one, is meant to end the process at once. A terminal that closes
/// sends more than one SIGHUP, and programs that run others pass a signal on twice.
bool insists(int signal, Clock::duration sinceFirst)
{
    return signal != SIGHUP && sinceFirst > 200ms;
}

/// Ends the process by the signal, as if it had never been caught.
void die(int signal)
{
    sigset_t only = {};
    ::sigemptyset(&only);
    ::sigaddset(&only, signal);
    std::signal(signal, SIG_DFL);
    ::pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    ::raise(signal);
}

void onSignal(int signal)
{
    const int errorBefore = errno;
    const Clock::rep now = Clock::now().time_since_epoch().count();
    Clock::rep first = 0;
    if (!firstSignal.compare_exchange_strong(first, now) && insists(signal, Clock::duration(now - first))) {
        die(signal);
    }
    ::sem_post(&signalsToTell);
    errno = errorBefore;
}

bool isIgnored(int signal)
{
    struct sigaction current = {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler == SIG_IGN; // nohup, or a shell's background job
}

} // namespace

InterruptSignals::InterruptSignals(HeardBy hearers, Reaction react) : react_(std::move(react))
{
    firstSignal = 0;
    ::sem_init(&signalsToTell, 0, 0);
    ::pthread_sigmask(SIG_SETMASK, nullptr, &maskBefore_);
    try {
        watcher_ = std::jthread([this](const std::stop_token &ending) { watch(ending); });
    } catch (const std::system_error &) {
        return;
    }
    sigset_t heard = {};
    ::sigemptyset(&heard);
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = SA_RESTART;
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        const int signal = interrupts[index];
        const bool caught = !isIgnored(signal);
        sigaction(signal, caught ? &action : nullptr, &actionsBefore_[index]);
        if (caught) {
            ::sigaddset(&heard, signal);
        }
    }
    if (hearers == HeardBy::OtherThreads) {
        ::pthread_sigmask(SIG_BLOCK, &heard, nullptr);
    }
}

InterruptSignals::~InterruptSignals()
{
    if (!watcher_.joinable()) {
        return;
    }
    watcher_.request_stop();
    ::sem_post(&signalsToTell);
    watcher_.join();
    for (std::size_t index = 0; index < interrupts.size(); ++index) {
        sigaction(interrupts[index], &actionsBefore_[index], nullptr);
    }
    ::pthread_sigmask(SIG_SETMASK, &maskBefore_, nullptr);
}

void InterruptSignals::watch(const std::stop_token &ending) const
{
    const AlternateStack stack;
    for (;;) {
        while (::sem_wait(&signalsToTell) != 0) { // interrupted by a signal
        }
        if (ending.stop_requested()) {
            return;
        }
        react_(ending);
    }
}
