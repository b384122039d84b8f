#pragma once

#include <QLoggingCategory>

/// The program's diagnostics: lines of text for developers. An error that concerns the user is shown elsewhere too.
Q_DECLARE_LOGGING_CATEGORY(lcTessarine)
