// A program that records its crashes, and crashes: "MODE REPORT", in another thread "worker-MODE REPORT", or by a
// signal "NUMBER REPORT".
#include "online/crash/CrashReportObject.h"
#include "online/crash/CrashReportSingal.h"
#include "platform/store/Bundle.h"
#include "platform/threads/SerialQueue.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <barrier>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

using namespace Qt::StringLiterals;

// Outside of the unnamed namespace and never put into their callers, so that they are found on the stack by their
// names. NOLINTBEGIN(clang-analyzer-*,bugprone-exception-escape): the faults are what this is about
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

[[gnu::noinline]] void throwError()
{
    throw std::runtime_error("it is broken");
}

struct BrokenError : std::exception {
    const char *what() const noexcept override { return throwError(), ""; }
};

[[gnu::noinline]] void fill(volatile char *start, int size)
{
    std::fill_n(start, size, 'A');
}

/// The heap finds itself broken, and aborts while it holds its lock.
[[gnu::noinline]] void breakHeap()
{
    volatile std::size_t size = 100000;
    const auto block = std::make_unique<char[]>(size);
    fill(block.get() + size, 64);
    while (std::malloc(size) != nullptr) {
    }
}

void crashInTwoThreads()
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

int main(int /*argc*/, char **argv)
{
    const auto smash = [] { // from here the stack cannot be followed
        volatile char local = 0;
        fill(&local, 400);
    };
    const std::map<std::string, std::function<void()>> modes{
        {"null", writeToNull}, {"overflow", [] { recurse(0); }},
        {"throw", throwError}, {"throw-broken", [] { throw BrokenError(); }},
        {"heap", breakHeap},   {"terminate", [] { std::terminate(); }},
        {"smash", smash},      {"two", crashInTwoThreads},
    };
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    const CrashReportObject record(Bundle::main(), u"GUID \"1\""_s);
    const CrashReportSingal handlers(QString::fromLocal8Bit(argv[2]), record);
    const std::string mode = argv[1];
    if (const int signal = std::atoi(argv[1])) {
        std::raise(signal);
    } else if (mode.starts_with("worker-")) {
        SerialQueue(u"worker"_s).async(modes.at(mode.substr(7)));
    } else {
        modes.at(mode)();
    }
    ::_exit(0); // it should not have come to this
}
