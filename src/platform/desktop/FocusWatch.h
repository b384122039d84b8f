#pragma once

#include <QObject>

/// Keeps the toolkit to what the X server says about the keyboard while sheets come and go. On X11 only; main thread.
///
/// The toolkit takes its own request to activate a sheet, which the server sends back to it, for the answer. A sheet
/// that has closed meanwhile then counts as the window with the keyboard. The window below has it and always had, so
/// the server has nothing more to tell, and every key is lost until the user changes the window.
class FocusWatch final : public QObject {
public:
    /// From now on, for every window of the program.
    FocusWatch();

    bool eventFilter(QObject *receiver, QEvent *event) override;
};
