#pragma once

#include <QObject>

/// Makes sure that the toolkit knows which window has the keyboard when a sheet closes. On X11 only; main thread.
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
