#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// What the user is to choose in an open panel.
struct OpenPanelRequest {
    QString title;          ///< of the panel
    QString prompt;         ///< label of the button that ends it; empty: the desktop's own
    QString folder;         ///< where it opens; empty: where the last one ended
    bool files = false;     ///< files may be chosen
    bool folders = false;   ///< folders may be chosen
    bool multiple = false;  ///< several at once
    QStringList extensions; ///< of the files that are offered, without dot; empty: all files
};

/// Lets the user choose files and folders: shows a panel and returns at once. `chosen` gets the paths, once, later or
/// during the call; none when the user has cancelled. It is not called when the window that the panel belongs to goes
/// away first. Main thread.
using OpenPanel =
    std::function<void(const OpenPanelRequest &request, std::function<void(const QStringList &paths)> chosen)>;
