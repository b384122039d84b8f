#include "online/CrashReportUtil.h"

#include "Shared/PathParts.h"

QString CrashReportUtil::getCrashReportObjectPath(const QString &documents)
{
    return GlobalFun::appendingPathComponent(documents, QStringLiteral("crash.info"));
}
