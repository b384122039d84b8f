#include "online/crash/CrashReportUtil.h"

#include "Shared/PathParts.h"

using namespace Qt::StringLiterals;

QString CrashReportUtil::getCrashReportObjectPath(const QString &documents)
{
    return GlobalFun::appendingPathComponent(documents, u"crash.info"_s);
}
