#pragma once

#include "Shared/FileHelper.h"
#include "Shared/PathParts.h"

#include <QString>

/// Where crash reports lie.
namespace CrashReportUtil {

/// The path of the one report, in the user's documents folder.
inline QString getCrashReportObjectPath(const QString &documents = FileHelper::getDocumentsPath())
{
    return GlobalFun::appendingPathComponent(documents, QStringLiteral("crash.info"));
}

} // namespace CrashReportUtil
