#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

/// The user defaults' file on disk.
///
/// Not QSettings: between reading the file and noting the time it bears, that leaves a moment in which another process
/// may write; the next write then takes the other's away again. Here every change reads the file anew under the lock.
namespace StoreFile {

/// Carries out `changes` (an invalid value removes its key) in one step, on top of what other processes have written
/// meanwhile, and returns all that the file then holds; with no changes it only reads. Nothing, with a line in the
/// log, when that failed: then the file is as it was.
///
/// A file that is not understood to the last line is first copied aside ("NAME.broken", "NAME.broken(1)", …), and is
/// never written over while that fails. Safe on any thread and in several processes at once.
std::optional<QVariantMap> update(const QString &path, const QVariantMap &changes);

} // namespace StoreFile
