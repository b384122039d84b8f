#pragma once

#include "platform/desktop/DroppedFiles.h"
#include "platform/desktop/OpenPanel.h"

#include <QImage>
#include <QString>

#include <functional>
#include <optional>

class AlertPanel;
class Workspace;

/// What a window needs from the desktop around it: questions, file panels, the file browser, dropped files, messages.
/// A value; what it refers to must outlive all copies. Main thread.
struct Desktop {
    AlertPanel &alert;
    OpenPanel openPanel;
    Workspace &workspace;
    DroppedFiles droppedFiles = {};
    /// Shows a message outside the program's windows; may be empty, as the picture may be null.
    std::function<void(const QString &title, const QString &text, const QImage &picture)> notify = {};
    /// Shows how far a job is, from 0 to 1, at the program's place in the task bar; nothing when it has ended. May be
    /// empty.
    std::function<void(std::optional<double> fraction)> showProgress = {};
};
