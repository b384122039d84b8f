#pragma once

#include <csignal>
#include <cstddef>

/// A second stack for the thread that makes it, on which signal handlers run that ask for one: the only place left when
/// the first stack has overflowed. The first local object of every thread of ours; ends on the same thread.
class AlternateStack {
public:
    /// Without memory for it the thread goes on without.
    AlternateStack();
    /// The thread gets back what it had before.
    ~AlternateStack();
    AlternateStack(const AlternateStack &) = delete;
    AlternateStack &operator=(const AlternateStack &) = delete;

private:
    void *memory;
    stack_t before = {};
};
