#pragma once

#include "platform/desktop/DroppedFiles.h"
#include "platform/desktop/OpenPanel.h"

class AlertPanel;
class Workspace;

/// What a window needs from the desktop around it: questions, file panels, the file browser, dropped files. A value;
/// what it refers to must outlive all copies.
struct Desktop {
    AlertPanel &alert;
    OpenPanel openPanel;
    Workspace &workspace;
    DroppedFiles droppedFiles = {};
};
