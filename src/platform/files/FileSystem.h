#pragma once

#include <string_view>

/// The system's calls on files. Safe on any thread.
namespace FileSystem {

/// Writes all of the text to an open file; false, with errno set, when some of it is lost. Fit for signal handlers.
bool writeAll(int file, std::string_view text);

/// Gives the path a file with these contents, which comes to be at the `temporary` path in the same folder: there is
/// the old file or the new one at any time. False when that failed. Fit for signal handlers.
bool replaceFile(const char *path, const char *temporary, std::string_view contents);

} // namespace FileSystem
