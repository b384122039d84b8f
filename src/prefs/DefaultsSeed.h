#pragma once

#include <QByteArray>
#include <QString>

class UserDefaults;

/// The registered defaults of the settings: what a key reads while the user has not written it.
namespace DefaultsSeed {

/// The "DefaultsParames" property list in the program's resources.
QByteArray resource();

/// The folder for collages under the user's home, which this does not make.
QString outputFolderUnder(const QString &home);

/// When that folder is made: the window shows it, a script may never write into it.
enum class OutputFolder { Now, WhenWritten };

/// Registers the property list's values, with the output folder under `home` and collages not beside their movies.
/// When it cannot be read, nothing at all is registered and the result is false. A folder that cannot be made is told
/// by those who use it.
bool registDefaults(UserDefaults &defaults, const QByteArray &propertyList, const QString &home, OutputFolder made);

} // namespace DefaultsSeed
