#pragma once

struct ActivationToken;
class QWindow;

/// Asks the window system to bring the window to the front and give it the keyboard. Without a token of the user's last
/// click it may refuse, and mark the window as one that wants attention. Main thread.
void activateWindow(QWindow &window, const ActivationToken &token);
