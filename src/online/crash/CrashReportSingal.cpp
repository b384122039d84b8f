#include "online/crash/CrashReportSingal.h"

#include "online/crash/CrashRecorder.h"
#include "online/crash/FixedText.h"
#include "online/crash/SignalSafeWriter.h"

#include <unistd.h>

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

/// Those that a crash while a report is written comes with, and the alarm.
constexpr std::array signalsWhileRecording{SIGILL, SIGTRAP, SIGABRT, SIGFPE, SIGBUS, SIGSEGV, SIGSYS, SIGALRM};

constexpr bool isInstrumented =
#ifdef TESSARINE_SANITIZED
    true;
#else
    false;
#endif

/// All that a handler reaches: the system gives it no object to work on. Set by CrashReportSingal before the handlers
/// are installed.
struct ProcessState {
    CrashRecorder *recorder = nullptr;
    unsigned patience = 0; ///< seconds
    std::terminate_handler terminateBefore = nullptr;
    std::array<struct sigaction, fatalSignals.size()> actionsBefore{};
    std::atomic<pid_t> dyingThread = 0; ///< the first that crashes, and the only one that records; 0 is none
    std::atomic<int> endingSignal = 0;  ///< what the process is to end by
    std::atomic<bool> exceptionAlreadyRecorded = false;
    std::atomic<bool> rescuing = false; ///< the recording has crashed, and what it has found is being written
};
ProcessState state;
static_assert(decltype(state.dyingThread)::is_always_lock_free && decltype(state.endingSignal)::is_always_lock_free &&
              decltype(state.exceptionAlreadyRecorded)::is_always_lock_free);

void unblock(auto signals)
{
    sigset_t set = {};
    sigemptyset(&set);
    for (const int signal : signals) {
        sigaddset(&set, signal);
    }
    ::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

/// Ends the process as if no handler had ever been there.
[[noreturn]] void endProcess()
{
    const int signal = state.endingSignal;
    state.recorder->abandon();
    for (const int number : fatalSignals) {
        std::signal(number, SIG_DFL);
    }
    unblock(std::array{signal});
    std::raise(signal);
    ::_exit(128 + signal); // the first process of a container is spared by the system
}

/// Makes the calling thread the one that records, unless there is one; from then on the process ends in time.
bool becomeDyingThread(int signal)
{
    pid_t none = 0;
    if (!state.dyingThread.compare_exchange_strong(none, ::gettid())) {
        return false;
    }
    state.endingSignal = signal;
    ::alarm(state.patience);
    unblock(signalsWhileRecording);
    return true;
}

[[noreturn]] void waitForEnd()
{
    for (;;) {
        ::pause();
    }
}

void onSignal(int signal, siginfo_t * /*info*/, void * /*context*/)
{
    if (becomeDyingThread(signal)) {
        state.recorder->record();
        state.recorder->logStack();
        endProcess();
    }
    if (state.exceptionAlreadyRecorded) {
        SignalSafeWriter(STDERR_FILENO).append("the crash has been recorded by the exception handler\n");
        endProcess();
    }
    if (signal == SIGALRM) { // out of patience
        endProcess();
    }
    if (state.dyingThread != ::gettid()) {
        waitForEnd();
    }
    // The recording has crashed. What saves its findings may crash too.
    if (!state.rescuing.exchange(true)) {
        state.recorder->rescue();
    }
    endProcess();
}

/// Tells the log of the exception that ends the program.
void logCurrentException(const std::type_info &type)
{
    FixedText name;
    appendDemangled(name, type.name());
    try {
        throw;
    } catch (const std::exception &exception) {
        state.recorder->logException(name.view(), exception.what());
    } catch (...) {
        state.recorder->logException(name.view(), {});
    }
}

[[noreturn]] void onTerminate()
{
    const std::type_info *type = abi::__cxa_current_exception_type();
    if (type != nullptr && becomeDyingThread(SIGABRT)) {
        state.recorder->record();
        logCurrentException(*type);
        state.exceptionAlreadyRecorded = true;
        state.terminateBefore();
    }
    if (state.dyingThread != 0 && state.dyingThread != ::gettid()) {
        waitForEnd();
    }
    std::abort(); // without an exception, or by what() of the first
}

bool install(int signal, struct sigaction &before)
{
    struct sigaction action = {};
    action.sa_sigaction = onSignal;
    action.sa_flags = SA_SIGINFO | SA_ONSTACK;
    sigfillset(&action.sa_mask);
    if (::sigaction(signal, &action, &before) == 0) {
        return true;
    }
    std::fprintf(stderr, "Signal registration for %s failed: %s\n", ::strsignal(signal), std::strerror(errno));
    std::fprintf(stderr, "set unCaught signals failed...\n");
    return false;
}

} // namespace

CrashReportSingal::CrashReportSingal(const QString &path, const CrashReportObject &record,
                                     std::chrono::seconds patience)
{
    if (isInstrumented) {
        return;
    }
    recorder = std::make_unique<CrashRecorder>(path, record);
    state.recorder = recorder.get();
    state.patience = static_cast<unsigned>(patience.count());
    state.terminateBefore = std::set_terminate(onTerminate);
    while (installed < fatalSignals.size() && install(fatalSignals[installed], state.actionsBefore[installed])) {
        ++installed;
    }
}

CrashReportSingal::~CrashReportSingal()
{
    if (recorder == nullptr) {
        return;
    }
    while (installed > 0) {
        --installed;
        ::sigaction(fatalSignals[installed], &state.actionsBefore[installed], nullptr);
    }
    std::set_terminate(state.terminateBefore);
}
