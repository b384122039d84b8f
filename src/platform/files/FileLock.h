#pragma once

/// Locks on files. A lock says that the process that made the file still runs: the system takes it away when the
/// process ends, however that happens.
namespace FileLock {

/// Locks the open file without waiting. False when another process holds it, or it has been removed meanwhile. True
/// also where the file system has no locks: no other process can then find the file unlocked.
bool take(int file);

/// Whether the open file is a regular one of this user's that no process holds; locks it.
bool takeAbandoned(int file);

} // namespace FileLock
