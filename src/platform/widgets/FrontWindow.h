#pragma once

class QWidget;

/// The window that the user is at, over which a question belongs: the sheet that is open, else the active window, else
/// one that can be seen. Null when no window is open. Main thread.
QWidget *frontWindow();
