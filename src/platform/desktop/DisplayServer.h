#pragma once

/// Whether a window system can be reached by what the environment says, so that there can be an application object with
/// windows: the toolkit would abort without. Tries to connect; for platforms of the toolkit without a window system
/// (QT_QPA_PLATFORM) always true. Before the application object.
bool hasDisplayServer();
