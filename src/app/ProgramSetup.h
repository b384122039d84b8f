#pragma once

#include "online/crash/CrashReportSender.h"
#include "prefs/DefaultsSeed.h"

#include <QString>
#include <QStringList>

class UserDefaults;

/// What both fronts of the program need before they begin: the real locale, places and arguments of this process.
namespace ProgramSetup {

/// Gives the process a UTF-8 locale if it has another one: Qt expects one, and warns at every start otherwise.
void ensureUtf8Locale();

/// The process's arguments as PathText.
QStringList arguments(int argc, char **argv);

/// The path from the root, so that it means the same whatever the current folder.
QString absolutePath(const QString &path);

/// Where the ffmpeg tool is expected: beside the running executable.
QString toolPath();

/// The file of the user's settings.
QString storePath();

/// Registers the default settings under the real home.
void seed(UserDefaults &defaults, DefaultsSeed::OutputFolder made);

/// Records crashes for as long as the result lives. The GUID in the reports may be null.
[[nodiscard]] CrashReportSender crashReportSender(const QString &guid);

/// One line in the log for each thing without which collages look poor: the tool, fonts. Needs a QGuiApplication.
void warnOfMissingParts(const QString &toolPath);

} // namespace ProgramSetup
