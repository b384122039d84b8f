#pragma once

#include "platform/Result.h"

#include <QByteArray>

#include <cstdint>

/// The size of a readable regular file, or why it is none. Opens and closes the file at the path's bytes without ever
/// waiting for it, so that a FIFO or a device is told from a regular file before anything reads it. A link to a regular
/// file counts as one. Safe on any thread.
Result<std::int64_t> checkRegularFile(const QByteArray &path);
