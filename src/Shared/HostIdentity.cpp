#include "Shared/HostIdentity.h"

#include "Shared/PreferenceKeys.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"
#include "platform/store/Bundle.h"
#include "platform/store/UserDefaults.h"

#include <QStringList>
#include <QUuid>

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// The value of a line of os-release, without the quotes of a shell.
QString unquoted(const QByteArray &value)
{
    QByteArray text = value.trimmed();
    for (const char quote : {'"', '\''}) {
        if (text.size() >= 2 && text.startsWith(quote) && text.endsWith(quote)) {
            text = text.mid(1, text.size() - 2);
        }
    }
    return QString::fromUtf8(text);
}

QStringList versionParts(const QString &releaseFile)
{
    static constexpr QByteArrayView key = "VERSION_ID=";
    auto release = FileSystem::contentsOf(releaseFile);
    if (!release) {
        release = FileSystem::contentsOf(u"/usr/lib/os-release"_s);
    }
    for (const QByteArray &line : release.value_or(QByteArray()).split('\n')) {
        if (line.startsWith(key)) {
            return unquoted(line.mid(key.size())).split(u'.');
        }
    }
    return {};
}

} // namespace

QString GlobalFun::osReleaseFile()
{
    return u"/etc/os-release"_s;
}

QString GlobalFun::getGUID(UserDefaults &defaults)
{
    if (defaults.contains(PreferenceKeys::guid)) {
        return defaults.textValue(PreferenceKeys::guid);
    }
    QString guid = QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    defaults.setText(PreferenceKeys::guid, guid);
    defaults.synchronize();
    return guid;
}

void GlobalFun::getMajor(std::uint32_t &major, std::uint32_t &minor, std::uint32_t &bugFix, const QString &releaseFile)
{
    QStringList parts = versionParts(releaseFile);
    if (parts.isEmpty()) {
        return;
    }
    for (std::uint32_t *output : {&major, &minor, &bugFix}) {
        bool isNumber = true;
        const std::uint32_t number = parts.isEmpty() ? 0 : parts.takeFirst().toUInt(&isNumber);
        if (!isNumber) {
            return;
        }
        *output = number;
    }
}

std::int64_t GlobalFun::getCurrentOSVersion(const QString &releaseFile)
{
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t bugFix = 0;
    getMajor(major, minor, bugFix, releaseFile);
    return std::int64_t{major} * 65536 + std::int64_t{minor} * 256 + bugFix;
}

QString GlobalFun::getSystemVersionString(const QString &releaseFile)
{
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::uint32_t bugFix = 0;
    getMajor(major, minor, bugFix, releaseFile);
    return u"%1.%2.%3"_s.arg(major).arg(minor).arg(bugFix);
}

QString GlobalFun::RealHomeDirectory()
{
    passwd entry = {};
    passwd *pw = nullptr;
    std::vector<char> texts(1024);
    while (::getpwuid_r(::getuid(), &entry, texts.data(), texts.size(), &pw) == ERANGE) {
        texts.resize(texts.size() * 2);
    }
    if (!pw) {
        qFatal("Assertion failed: (%s), function %s, file %s, line %d.", "pw", "+[GlobalFun RealHomeDirectory]",
               "Shared/GlobalFun", 325);
    }
    return PathText::fromBytes(pw->pw_dir);
}

QString GlobalFun::computerModel()
{
    return u"Mac"_s;
}

QString GlobalFun::getAppVersion(const Bundle &bundle)
{
    const QString version = bundle.value(u"CFBundleShortVersionString"_s);
    QStringList parts = version.isEmpty() ? QStringList() : version.split(u'.');
    while (parts.size() < 3) {
        parts.append(u"0"_s);
    }
    return parts.mid(0, 3).join(u'.');
}

QString GlobalFun::getAppBuildNumber(const Bundle &bundle)
{
    return bundle.value(u"CFBundleVersion"_s);
}

QString GlobalFun::getAppBuildVersion(const Bundle &bundle)
{
    return getAppVersion(bundle) + u'.' + getAppBuildNumber(bundle);
}

QString GlobalFun::bundleID(const Bundle &bundle)
{
    return bundle.identifier();
}
