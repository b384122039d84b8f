#pragma once

#include <atomic>

/// Tells a job to stop: set once by whoever cancels, on any thread or in a signal handler, and read by the job often.
using CancelFlag = std::atomic<bool>;
static_assert(CancelFlag::is_always_lock_free);
