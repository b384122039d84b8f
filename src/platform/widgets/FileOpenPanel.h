#pragma once

#include "platform/desktop/OpenPanel.h"

/// Open panels as file dialogs over the front window. Main thread.
///
/// `sandboxed`: only the desktop's own dialog can grant access, so it is always used, though it can choose either files
/// or one folder; a request for both gets files. Elsewhere the toolkit's dialog does what the desktop's cannot.
OpenPanel fileOpenPanel(bool sandboxed);
