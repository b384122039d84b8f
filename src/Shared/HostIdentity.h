#pragma once

#include <QString>

#include <cstdint>

class Bundle;
class UserDefaults;

/// Who and where this program is: the installation, the system under it, the user's home, its own version. What the
/// program does not call belongs to the vocabulary.
namespace GlobalFun {

/// Where the distribution says what it is; without it, /usr/lib/os-release is read.
QString osReleaseFile();

/// This installation's random identifier, an upper-case UUID; made and written to disk at the first call.
QString getGUID(UserDefaults &defaults);

/// The system's version, from the distribution's version id: "12" is 12, 0, 0. Stops at the first part that is no
/// number and leaves that output and those after it untouched; all of them when the system has no version.
void getMajor(std::uint32_t &major, std::uint32_t &minor, std::uint32_t &bugFix,
              const QString &releaseFile = osReleaseFile());

/// The system's version as one number, major × 65536 + minor × 256 + bug-fix; 0 when it has none.
std::int64_t getCurrentOSVersion(const QString &releaseFile = osReleaseFile());

/// The system's version as "12.0.0".
QString getSystemVersionString(const QString &releaseFile = osReleaseFile());

/// The home in the user database of the real user, whatever the environment says. Ends the program when the database
/// does not know the user.
QString RealHomeDirectory();

/// Always "Mac", the kind of computer that the service knows.
QString computerModel();

/// The version for users, with three parts whatever the bundle says: "2.1" is "2.1.0".
QString getAppVersion(const Bundle &bundle);

/// The number of the build, as the bundle has it.
QString getAppBuildNumber(const Bundle &bundle);

/// Version and build: "2.1.0.57".
QString getAppBuildVersion(const Bundle &bundle);

QString bundleID(const Bundle &bundle);

} // namespace GlobalFun
