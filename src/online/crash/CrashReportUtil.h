#pragma once

#include "Shared/FileHelper.h"

#include <QString>

/// Where crash reports lie.
namespace CrashReportUtil {

/// The path of the one report, in the user's documents folder.
QString getCrashReportObjectPath(const QString &documents = FileHelper::getDocumentsPath());

} // namespace CrashReportUtil
