#pragma once

#include <functional>

/// Takes work from any thread and does it elsewhere, one piece after the other in the order given (interface).
class DispatchQueue {
public:
    using Work = std::function<void()>;

    virtual ~DispatchQueue() = default;

    /// Puts the work at the end of the queue and returns at once. The work must not throw.
    virtual void async(Work work) = 0;
};
