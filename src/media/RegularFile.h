#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

/// What a look at a path told: the size of a readable regular file, or why it is none.
struct RegularFileCheck {
    QString problem; ///< in words for the user; empty when all is well
    std::int64_t size = 0;
};

/// Opens and closes the file at the path's bytes without ever waiting for it, so that a FIFO or a device is told from a
/// regular file before anything reads it. A link to a regular file counts as one. Safe on any thread.
RegularFileCheck checkRegularFile(const QByteArray &path);
