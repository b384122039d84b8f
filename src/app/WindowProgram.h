#pragma once

#include "app/window/DesktopService.h"
#include "platform/threads/MainQueue.h"

#include <QStringList>

#include <memory>

struct ActivationToken;

/// The program with its window, from the first call to the desktop to the end. Its parts are made in the order in which
/// they need each other. Made after the application object; main thread.
class WindowProgram {
public:
    explicit WindowProgram(const QString &identifier);
    ~WindowProgram();
    WindowProgram(const WindowProgram &) = delete;
    WindowProgram &operator=(const WindowProgram &) = delete;

    /// Leaves the paths, which may be none, to the program of this name that runs already; false when there is none.
    bool handOver(const QStringList &paths, const ActivationToken &token);
    /// Opens the window with these paths and returns when it has been closed: the exit status.
    int run(const QStringList &paths);

private:
    struct Parts;

    void open(const QStringList &paths, const ActivationToken &click);
    void bringForward(const ActivationToken &click);
    void quit();

    MainQueue mainQueue_;
    DesktopService desktop_; ///< what it is called for waits until the parts are there
    std::unique_ptr<Parts> parts_;
};
