#pragma once

class QWidget;

/// Keeps a top-level window, with the frame that the desktop draws around it, on its screen: shrinks what is larger
/// than the room there, its minimum size too, and moves back what has a place of its own. The frame of a window that
/// has never been shown is guessed. Main thread.
void keepOnScreen(QWidget &window);
