#pragma once

#include "platform/Result.h"

#include <QByteArray>

#include <cstdint>

/// The size of a readable regular file, or why the path does not lead to one. Opens and closes the file at the path's
/// bytes without waiting for anything, so that a FIFO or a device is recognised before anything reads from it. A link
/// to a regular file counts as one. Safe on any thread.
Result<std::int64_t> checkRegularFile(const QByteArray &path);
