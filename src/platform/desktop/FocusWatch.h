#pragma once

#include <QObject>

/// Keeps the keyboard where the user expects it while sheets come and go. On X11 only; main thread.
///
/// A click on a window that a sheet hangs over makes some window managers give that window the keyboard, though it
/// takes no key: the sheet gets it back.
///
/// When the toolkit asks for a sheet to be activated, the server sends the request back, and the toolkit takes that for
/// the answer. If the sheet has closed meanwhile, the toolkit believes that the closed sheet has the keyboard. The
/// window below had it all the time, so the server sends nothing more, and keys are lost until the user changes the
/// window.
class FocusWatch final : public QObject {
public:
    /// From now on, for every window of the program.
    FocusWatch();

    bool eventFilter(QObject *receiver, QEvent *event) override;
};
