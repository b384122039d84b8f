#pragma once

#include <span>

/// Whether the window system named by the environment and the program's arguments can be reached; it tries to connect.
/// Always true for platforms of the toolkit without a window system (QT_QPA_PLATFORM, -platform). To be called before
/// the application object is made, which aborts the program when there is no window system.
bool hasDisplayServer(std::span<char *const> arguments);
