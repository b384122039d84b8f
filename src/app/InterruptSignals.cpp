#include "app/InterruptSignals.h"

#include "app/InterruptHandler.h"
#include "platform/threads/AlternateStack.h"

#include <sys/eventfd.h>
#include <sys/signalfd.h>

#include <array>
#include <cstdlib>
#include <poll.h>
#include <system_error>

using namespace std::chrono_literals;

namespace {

/// What the work gets to end in good order.
constexpr auto patience = 10s;
/// How often a call that blocks the work is interrupted: one that begins just after a signal would miss it.
constexpr int hurryInterval = 100; // milliseconds
/// Interrupts system calls and does nothing else; the system ignores it where nobody waits for it.
constexpr int hurrySignal = SIGURG;
/// As the command line's, when it is interrupted and can still say so.
constexpr int interruptedStatus = 130;

} // namespace

InterruptSignals::InterruptSignals(CancelFlag &flag) :
    cancelled(flag),
    interrupts(InterruptHandler::expectedInterrupts()),
    worker(::pthread_self()),
    signalFile(::signalfd(-1, &interrupts, SFD_CLOEXEC | SFD_NONBLOCK)),
    ending(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
    struct sigaction interruptCalls = {};
    interruptCalls.sa_handler = [](int) {}; // and without SA_RESTART
    sigaction(hurrySignal, &interruptCalls, nullptr);
    ::pthread_sigmask(SIG_BLOCK, &interrupts, &blockedBefore);
    try {
        watcher = std::thread([this] { watch(); });
    } catch (const std::system_error &) {
        ::pthread_sigmask(SIG_SETMASK, &blockedBefore, nullptr);
    }
}

InterruptSignals::~InterruptSignals()
{
    if (watcher.joinable()) {
        ::eventfd_write(ending.get(), 1);
        watcher.join();
        ::pthread_sigmask(SIG_SETMASK, &blockedBefore, nullptr);
    }
}

void InterruptSignals::watch()
{
    const AlternateStack stack;
    std::array<pollfd, 2> files = {{{ending.get(), POLLIN, 0}, {signalFile.get(), POLLIN, 0}}};
    while (files[0].revents == 0) {
        ::poll(files.data(), files.size(), cancelled ? hurryInterval : -1);
        takeSignal();
        if (cancelled && files[0].revents == 0) {
            hurry();
        }
    }
}

void InterruptSignals::takeSignal()
{
    signalfd_siginfo signal = {};
    if (::read(signalFile.get(), &signal, sizeof signal) != sizeof signal) {
        return;
    }
    cancelled = true;
    if (!cancelledAt) {
        cancelledAt = std::chrono::steady_clock::now();
    } else if (InterruptHandler::insists(static_cast<int>(signal.ssi_signo),
                                         std::chrono::steady_clock::now() - *cancelledAt)) {
        InterruptHandler::die(static_cast<int>(signal.ssi_signo));
    }
}

/// Wakes the work where a system call blocks it. What no signal can wake, such as a network disk that has gone, is left
/// behind in the end.
void InterruptSignals::hurry() const
{
    ::pthread_kill(worker, hurrySignal);
    if (cancelledAt && std::chrono::steady_clock::now() - *cancelledAt > patience) {
        std::_Exit(interruptedStatus);
    }
}
