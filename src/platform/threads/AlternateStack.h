#pragma once

#include <array>
#include <csignal>
#include <cstddef>
#include <memory>

/// A second stack for the thread that makes it. Signal handlers that ask for one run on it, and so can still run when
/// the first stack has overflowed. Every thread of ours begins by making one; it ends on the same thread.
class AlternateStack {
public:
    AlternateStack()
    {
        stack_t stack = {};
        stack.ss_sp = memory_->data();
        stack.ss_size = memory_->size();
        ::sigaltstack(&stack, &before_);
    }
    /// The thread gets back what it had before.
    ~AlternateStack() { ::sigaltstack(&before_, nullptr); }
    AlternateStack(const AlternateStack &) = delete;
    AlternateStack &operator=(const AlternateStack &) = delete;

private:
    using Memory = std::array<std::byte, std::size_t{64} * 1024>; // several times what a crash report takes
    std::unique_ptr<Memory> memory_ = std::make_unique_for_overwrite<Memory>();
    stack_t before_ = {};
};
