#pragma once

#include <span>

/// Whether a window system can be reached by what the environment and the program's arguments say, so that there can be
/// an application object with windows: the toolkit would abort without. Tries to connect; for platforms of the toolkit
/// without a window system (QT_QPA_PLATFORM, -platform) always true. Before the application object.
bool hasDisplayServer(std::span<char *const> arguments);
