#pragma once

#include <QByteArray>
#include <QString>

class UserDefaults;

/// The registered defaults of the settings: what a key reads while the user has not written it.
namespace DefaultsSeed {

/// The "DefaultsParames" property list in the program's resources.
QByteArray resource();

/// The folder for collages under the user's home. Making it is the caller's business.
QString outputFolderUnder(const QString &home);

/// Registers the property list's values, with the output folder under `home` and collages not beside their movies.
/// When it cannot be read, nothing at all is registered and the result is false.
bool registDefaults(UserDefaults &defaults, const QByteArray &propertyList, const QString &home);

} // namespace DefaultsSeed
