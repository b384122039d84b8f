#pragma once

#include "platform/desktop/DroppedFiles.h"

class AlertPanel;
class OpenPanel;
class Workspace;

/// What a window has from the desktop around it: it asks, lets choose, shows, and brings files. A value; what it refers
/// to must outlive all copies.
struct Desktop {
    AlertPanel &alert;
    OpenPanel &openPanel;
    Workspace &workspace;
    DroppedFiles droppedFiles = {};
};
