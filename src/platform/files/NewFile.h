#pragma once

#include <QByteArray>
#include <QString>

#include <system_error>

/// Writes `contents` as a new file at `path`, all or nothing: at the path there is the complete file or none at any
/// time, whatever is killed or full, and an existing file is never replaced (std::errc::file_exists).
/// The permissions are those of any new file of this user. Safe on any thread.
std::error_code writeNewFile(const QString &path, const QByteArray &contents);
