#pragma once

#include <QStringList>

/// Runs the program with its window and loads the paths; returns the exit status. A second start hands its paths to the
/// first and ends.
int runWindowFront(const QStringList &paths, int argc, char **argv);
