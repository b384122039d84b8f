#include "platform/threads/AlternateStack.h"

#include <sys/mman.h>
#include <unistd.h>

namespace {

/// Enough to name 128 frames: the demangler takes some 64 bytes of stack for each letter of a name. Only pages in use
/// cost memory.
constexpr std::size_t stackSize = std::size_t{512} * 1024;

std::size_t guardSize()
{
    static const auto pageSize = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    return pageSize;
}

} // namespace

AlternateStack::AlternateStack() :
    memory(::mmap(nullptr, guardSize() + stackSize, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1,
                  0))
{
    if (memory == MAP_FAILED) {
        return;
    }
    // Stacks grow down: one that is full meets the guard, not somebody's data.
    ::mprotect(memory, guardSize(), PROT_NONE);
    stack_t stack = {};
    stack.ss_sp = static_cast<char *>(memory) + guardSize();
    stack.ss_size = stackSize;
    ::sigaltstack(&stack, &before);
}

AlternateStack::~AlternateStack()
{
    if (memory == MAP_FAILED) {
        return;
    }
    ::sigaltstack(&before, nullptr);
    ::munmap(memory, guardSize() + stackSize);
}
