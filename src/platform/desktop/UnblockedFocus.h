#pragma once

#include <QObject>

/// Tells the toolkit that a window has the keyboard when a sheet that has blocked the window goes. On X11 only; main
/// thread.
///
/// When a window that a sheet blocks gets the keyboard, the toolkit asks for it to go to the sheet, and forgets that
/// the window has it. A sheet that closes before the server has shown it never gets it; the keyboard stays with the
/// window, the server has nothing more to tell, and the toolkit drops every shortcut until the user changes the window.
class UnblockedFocus final : public QObject {
public:
    /// From now on, for every window of the program.
    UnblockedFocus();

    bool eventFilter(QObject *receiver, QEvent *event) override;
};
