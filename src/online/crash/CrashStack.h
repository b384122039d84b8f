#pragma once

#include "online/crash/FixedText.h"

#include <array>
#include <cstddef>
#include <cstdint>

struct backtrace_state;

/// The stack of a thread that crashes, and the names of the functions on it. Made while all is well; used in signal
/// handlers, by one thread.
class CrashStack {
public:
    /// How far to go for a frame's name: what a process can still do depends on how badly it is hurt.
    enum class Detail {
        Address,  ///< module and offset; only reads what the loader keeps
        Symbol,   ///< and the symbol, file and line; needs no heap
        Readable, ///< and the function as it stands in the source; needs the heap and the loader's lock
    };

    /// Reads the names of what is loaded by now.
    CrashStack();

    /// Takes the caller's stack, its innermost 128 frames. When it crashes itself, those that it has found stay.
    void capture();
    std::size_t size() const { return count; }
    /// One frame as text, for example "tessarine+0x2f1c0 MovieList::insert(int) (MovieList.cpp:41)"; 0 is innermost.
    FixedText frame(std::size_t index, Detail detail) const;

private:
    static int addFrame(void *stack, std::uintptr_t address);

    backtrace_state *names; ///< the library keeps it until the process ends
    std::array<std::uintptr_t, 128> addresses{};
    std::size_t count = 0;
};

/// Appends the name of a function or type as it stands in the source, or as it is when it has no other. Needs the heap.
void appendDemangled(FixedText &text, const char *symbol);
