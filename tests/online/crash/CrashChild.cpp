// A program that records its crashes, and crashes: "MODE REPORT", or "raise REPORT SIGNAL".
#include "online/crash/CrashReportObject.h"
#include "online/crash/CrashReportSingal.h"
#include "platform/store/Bundle.h"
#include "platform/threads/SerialQueue.h"

#include <QCoreApplication>
#include <QTimer>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <barrier>
#include <cstdlib>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

using namespace Qt::StringLiterals;

// Outside of the unnamed namespace and never put into their callers, so that they are found on the stack by their
// names.
// NOLINTBEGIN(clang-analyzer-*,bugprone-exception-escape): the faults are what this is about

[[gnu::noinline]] void writeToNull()
{
    volatile int *volatile nowhere = nullptr;
    *nowhere = 1;
}

[[gnu::noinline]] int recurse(int depth) // NOLINT(misc-no-recursion)
{
    std::array<volatile int, 1000> ballast{};
    ballast[1] = depth;
    return depth < 0 ? 0 : recurse(depth + 1) + ballast[1];
}

[[gnu::noinline]] void divideByZero()
{
    volatile int zero = 0;
    zero = 7 / zero;
}

[[gnu::noinline]] void throwError()
{
    throw std::runtime_error("it is broken");
}

struct BrokenError : std::exception {
    const char *what() const noexcept override
    {
        throwError();
        return "";
    }
};

[[gnu::noinline]] void fill(volatile char *start, int size)
{
    std::fill_n(start, size, 'A');
}

/// Leaves no address space to anybody.
[[gnu::noinline]] void crashWithoutMemory()
{
    const rlimit nothing{1, 1};
    ::setrlimit(RLIMIT_AS, &nothing);
    while (std::malloc(64) != nullptr) {
    }
    writeToNull();
}

/// The heap finds itself broken, and aborts while it holds its lock.
[[gnu::noinline]] void breakHeap()
{
    volatile std::size_t size = 100000;
    char *volatile block = static_cast<char *>(std::malloc(size));
    fill(block + size, 64);
    while (block != nullptr) {
        block = static_cast<char *>(std::malloc(size));
    }
}

/// Whoever follows the stack from here ends up nowhere.
[[gnu::noinline]] void smashStack()
{
    volatile char local = 0;
    fill(&local, 400);
}

[[gnu::noinline]] void crashInTwoThreads()
{
    std::barrier bothReady(2);
    const auto crash = [&bothReady] {
        bothReady.arrive_and_wait();
        writeToNull();
    };
    SerialQueue other(u"other"_s);
    other.async(crash);
    crash();
}

// NOLINTEND(clang-analyzer-*,bugprone-exception-escape)

namespace {

const std::map<std::string, std::function<void()>> modes{
    {"null", writeToNull},
    {"overflow", [] { recurse(0); }},
    {"divide", divideByZero},
    {"throw", throwError},
    {"throw-broken", [] { throw BrokenError(); }},
    {"abort", [] { std::abort(); }},
    {"terminate", [] { std::terminate(); }},
    {"no-memory", crashWithoutMemory},
    {"heap", breakHeap},
    {"smash", smashStack},
    {"two", crashInTwoThreads},
};

} // namespace

int main(int argc, char **argv)
{
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    QCoreApplication application(argc, argv);
    const CrashReportSingal handlers(QString::fromLocal8Bit(argv[2]),
                                     CrashReportObject(Bundle::main(), u"GUID \"1\""_s), std::chrono::seconds(4));
    SerialQueue worker(u"worker"_s);
    std::string mode = argv[1];
    if (mode == "raise") {
        std::raise(std::atoi(argv[3]));
    }
    const bool inWorker = mode.starts_with("worker-");
    const auto crash = [action = modes.at(inWorker ? mode.substr(7) : mode)] {
        action();
        ::_exit(0); // it should not have come to this
    };
    if (inWorker) {
        worker.async(crash);
    } else {
        QTimer::singleShot(0, &application, crash);
    }
    return QCoreApplication::exec();
}
