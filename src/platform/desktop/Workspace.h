#pragma once

#include <QString>

/// The desktop around the program: shows a file to the user. May be called on any thread.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Opens the file in the user's program for its type.
    virtual void openFile(const QString &path) = 0;
    /// Shows the file, selected, in the file browser.
    virtual void revealFile(const QString &path) = 0;
};
