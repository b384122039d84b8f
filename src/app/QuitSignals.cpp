#include "app/QuitSignals.h"

#include "platform/Log.h"

#include <sys/eventfd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>

namespace {

// A signal handler reaches nothing but globals.
std::atomic<int> counterToRaise{-1};
static_assert(decltype(counterToRaise)::is_always_lock_free);

void onInterrupt(int /*signal*/)
{
    const int errorBefore = errno;
    const std::uint64_t one = 1;
    // It can fail only when the counter is full, and then the event loop is awake already.
    [[maybe_unused]] const ssize_t written = ::write(counterToRaise.load(), &one, sizeof one);
    errno = errorBefore;
}

} // namespace

QuitSignals::QuitSignals(std::function<void()> request) :
    quitRequested(std::move(request)),
    counter(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
    notifier(QSocketNotifier::Read)
{
    if (!counter.isOpen()) { // the signals end the program as they always do
        qCWarning(lcTessarine) << "signals cannot be watched:" << qt_error_string();
        return;
    }
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [this] { takeSignals(); });
    notifier.setSocket(counter.get());
    notifier.setEnabled(true);
    counterToRaise = counter.get();
    handler.emplace(onInterrupt);
}

QuitSignals::~QuitSignals()
{
    handler.reset();
    counterToRaise = -1;
}

void QuitSignals::takeSignals()
{
    std::uint64_t signalCount = 0;
    if (::read(counter.get(), &signalCount, sizeof signalCount) > 0) {
        quitRequested();
    }
}
