#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The bytes by which a granted folder is found again after a restart: a small JSON text
/// {"kind": "path", "path": its bytes, percent-encoded, "dev": …, "inode": …}. The two numbers are the file system's,
/// as signed 64-bit integers. Nothing for an empty path, or when nothing is there. Safe on any thread.
std::optional<QByteArray> bookmarkData(const QString &folderPath);
