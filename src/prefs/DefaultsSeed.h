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

/// When that folder is made. The window shows it, so it must exist; an export may never need it.
enum class OutputFolder { Now, WhenWritten };

/// Registers the property list's values, with the output folder under `home` and collages not beside their movies. When
/// it cannot be read, nothing at all is registered and the result is false. No error when the folder cannot be made:
/// that is reported when it is used.
bool registDefaults(UserDefaults &defaults, const QByteArray &propertyList, const QString &home, OutputFolder made);

} // namespace DefaultsSeed
