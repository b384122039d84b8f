#include "online/crash/CrashReportSingal.h"

#include "online/crash/CrashRecorder.h"
#include "platform/files/FileSystem.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <exception>
#include <typeinfo>

namespace {

constexpr std::array fatalSignals{SIGQUIT, SIGILL, SIGTRAP, SIGABRT,
#ifdef SIGEMT
                                  SIGEMT,
#endif
                                  SIGFPE,  SIGBUS, SIGSEGV, SIGSYS,  SIGPIPE, SIGALRM, SIGXCPU, SIGXFSZ};

constexpr bool isInstrumented =
#ifdef TESSARINE_SANITIZED
    true;
#else
    false;
#endif

/// All that a handler uses: the system passes it no object, so this is global. Set by CrashReportSingal before the
/// handlers are installed.
struct ProcessState {
    CrashRecorder *recorder = nullptr;
    std::terminate_handler terminateBefore = nullptr;
    std::atomic<pid_t> dyingThread = 0; ///< the first that crashes, and the only one that records; 0 is none
    std::atomic<int> endingSignal = 0;  ///< what the process is to end by
    std::atomic<bool> exceptionAlreadyRecorded = false;
    std::atomic<bool> rescuing = false; ///< the recording has crashed, and what it has found is being written
};
ProcessState state;
static_assert(decltype(state.dyingThread)::is_always_lock_free && decltype(state.rescuing)::is_always_lock_free);

/// Makes the calling thread the one that records, unless there is one.
bool becomeDyingThread(int signal)
{
    pid_t none = 0;
    if (!state.dyingThread.compare_exchange_strong(none, ::gettid())) {
        return false;
    }
    state.endingSignal = signal;
    // A report that cannot be written, to a network drive or a pipe that nobody reads, must not keep the process.
    std::signal(SIGALRM, SIG_DFL);
    ::alarm(10);
    return true;
}

/// For another thread than the dying one: the process ends with that.
void waitIfOtherThreadDies()
{
    while (state.dyingThread != 0 && state.dyingThread != ::gettid()) {
        ::pause();
    }
}

/// Restores the default actions, so that the signal raised next ends the process.
void resetActions()
{
    for (const int signal : fatalSignals) {
        std::signal(signal, SIG_DFL);
    }
}

void unblock(int signal)
{
    sigset_t set = {};
    sigemptyset(&set);
    sigaddset(&set, signal);
    ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

void onSignal(int signal, siginfo_t * /*info*/, void * /*context*/)
{
    unblock(signal); // a fault of the recording comes back here
    if (state.exceptionAlreadyRecorded) {
        FileSystem::writeAll(STDERR_FILENO, "the crash has been recorded by the exception handler\n");
    } else if (becomeDyingThread(signal)) {
        state.recorder->record();
        state.recorder->logStack();
    } else {
        waitIfOtherThreadDies();
        // The recording has crashed, mostly on a stack that cannot be followed to its end.
        if (!state.rescuing.exchange(true)) {
            state.recorder->writeReport();
        }
    }
    resetActions();
    std::raise(state.endingSignal);
}

/// Tells the log of the exception that ends the program.
void logCurrentException(const std::type_info &type)
{
    using Freed = std::unique_ptr<char, decltype(&std::free)>;
    const Freed readable(abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr), &std::free);
    const char *const name = readable ? readable.get() : type.name();
    try {
        throw;
    } catch (const std::exception &exception) {
        state.recorder->logException(name, exception.what());
    } catch (...) {
        state.recorder->logException(name, {});
    }
}

[[noreturn]] void onTerminate()
{
    const std::type_info *type = abi::__cxa_current_exception_type();
    if (type != nullptr && becomeDyingThread(SIGABRT)) {
        state.recorder->record();
        state.exceptionAlreadyRecorded = true;
        logCurrentException(*type);
        state.terminateBefore();
    }
    waitIfOtherThreadDies();
    std::abort(); // without an exception, or by what() of the first
}

bool install(int signal)
{
    struct sigaction action = {};
    action.sa_sigaction = onSignal;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    if (::sigaction(signal, &action, nullptr) == 0) {
        return true;
    }
    std::fprintf(stderr, "Signal registration for %s failed: %s\n", ::strsignal(signal), std::strerror(errno));
    std::fprintf(stderr, "set unCaught signals failed...\n");
    return false;
}

} // namespace

CrashReportSingal::CrashReportSingal(const QString &path, const CrashReportObject &record)
{
    if (isInstrumented) {
        return;
    }
    recorder_ = std::make_unique<CrashRecorder>(path, record);
    state.recorder = recorder_.get();
    state.terminateBefore = std::set_terminate(onTerminate);
    static_cast<void>(std::ranges::all_of(fatalSignals, install));
}

CrashReportSingal::~CrashReportSingal()
{
    if (recorder_ != nullptr) {
        resetActions();
        std::set_terminate(state.terminateBefore);
    }
}
