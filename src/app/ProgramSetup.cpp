#include "app/ProgramSetup.h"

#include "Shared/FileHelper.h"
#include "Shared/FrameGrabber.h"
#include "Shared/HostIdentity.h"
#include "online/crash/CrashReportObject.h"
#include "online/crash/CrashReportUtil.h"
#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"
#include "platform/store/Bundle.h"

#include <QFontDatabase>
#include <QStandardPaths>

#include <algorithm>
#include <clocale>
#include <filesystem>
#include <langinfo.h>
#include <string>
#include <system_error>

void ProgramSetup::ensureUtf8Locale()
{
    std::setlocale(LC_ALL, "");
    if (qstrcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
        qputenv("LC_ALL", "C.UTF-8");
    }
}

QStringList ProgramSetup::arguments(int argc, char **argv)
{
    QStringList texts;
    std::transform(argv, argv + argc, std::back_inserter(texts),
                   [](const char *argument) { return PathText::fromBytes(argument); });
    return texts;
}

QString ProgramSetup::absolutePath(const QString &path)
{
    if (path.startsWith(u'/')) {
        return path;
    }
    std::error_code error; // then the path names nothing, which is told where it is looked at
    const std::string current = std::filesystem::current_path(error).native();
    qsizetype start = 0;
    while (QStringView(path).mid(start).startsWith(u"./")) {
        start += 2;
    }
    return PathText::fromBytes(current) + u'/' + path.mid(start);
}

QString ProgramSetup::toolPath()
{
    return FrameGrabber::toolPathBeside(FileSystem::executablePath());
}

QString ProgramSetup::storePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/Tessarine/settings.json";
}

void ProgramSetup::seed(UserDefaults &defaults, DefaultsSeed::OutputFolder made)
{
    DefaultsSeed::registDefaults(defaults, DefaultsSeed::resource(), GlobalFun::RealHomeDirectory(), made);
}

CrashReportSender ProgramSetup::crashReportSender(const QString &guid)
{
    return {CrashReportUtil::getCrashReportObjectPath(), CrashReportObject(Bundle::main(), guid)};
}

void ProgramSetup::warnOfMissingParts(const QString &toolPath)
{
    if (!FileHelper::fileExistsWithPath(toolPath)) {
        qCWarning(lcTessarine).noquote() << "ffmpeg is missing, expected at" << PathText::forDisplay(toolPath)
                                         << "- collages will have no pictures";
    }
    if (QFontDatabase::families().isEmpty()) {
        qCWarning(lcTessarine) << "no fonts are installed, texts will show as boxes";
    }
}
