#pragma once

#include "app/command/ExportOptions.h"

/// Runs `tessarine --export` with this user's settings and the real tool; returns the exit status.
int runExportFront(ExportOptions options, int argc, char **argv);
