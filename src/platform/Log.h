#pragma once

#include <QLoggingCategory>

/// The program's diagnostics: free-form lines for whoever looks for a fault, never the only place where a user learns
/// of an error.
Q_DECLARE_LOGGING_CATEGORY(lcTessarine)
