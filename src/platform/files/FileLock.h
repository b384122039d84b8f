#pragma once

/// Locks on files that say "the process that made this is still there": they go with the process, whatever ends it.
namespace FileLock {

/// Locks the open file without waiting. False when another process holds it, or it has been removed meanwhile; true
/// also where the file system knows no locks, as nobody else can then take the file for one without an owner.
bool take(int file);

/// Whether the open file is a regular one of this user's that no process holds; locks it.
bool takeAbandoned(int file);

} // namespace FileLock
