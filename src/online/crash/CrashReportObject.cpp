#include "online/crash/CrashReportObject.h"

#include "Shared/HostIdentity.h"
#include "online/crash/CrashReportFile.h"
#include "platform/Log.h"
#include "platform/files/FileDescriptor.h"
#include "platform/files/PathText.h"
#include "platform/store/Bundle.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <fcntl.h>
#include <sys/stat.h>

#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView dateName("date");
constexpr QLatin1StringView stackName("stackArray");

/// The file's contents; empty when it is no regular file or longer than any record.
QByteArray contentsOf(const QString &path)
{
    static constexpr qint64 longestRecord = qint64{1} << 20;
    // Without O_NONBLOCK a FIFO would wait for its writer.
    const FileDescriptor opened(::open(PathText::toBytes(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    QFile file;
    if (!opened.isOpen() || ::fstat(opened.get(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > longestRecord || !file.open(opened.get(), QIODevice::ReadOnly)) {
        return {};
    }
    return file.read(longestRecord);
}

} // namespace

CrashReportObject::CrashReportObject(const Bundle &bundle, const QString &guid) :
    osName(u"mac os"_s),
    deviceModel(GlobalFun::computerModel() + u"|___"_s),
    deviceUniqueIdentifier(guid),
    osVersion(GlobalFun::getSystemVersionString()),
    identifier(bundle.identifier())
{
    const QString shortVersion = bundle.value(u"CFBoundleShortVersionString"_s);
    if (!shortVersion.isEmpty()) {
        version = shortVersion + u".build"_s + bundle.value(u"CFBundleVersion"_s);
    }
    qCDebug(lcTessarine).noquote() << "---------|||||||| :" << guid;
}

CrashReportObject CrashReportObject::initWithCrashDate(const QDateTime &date, const QStringList &stack,
                                                       const Bundle &bundle, const QString &guid)
{
    CrashReportObject record(bundle, guid);
    record.date = date;
    record.stackArray = stack;
    return record;
}

std::optional<CrashReportObject> CrashReportObject::initWithContentsOfFile(const QString &path)
{
    const QJsonDocument document = QJsonDocument::fromJson(contentsOf(path));
    if (!document.isObject()) {
        return std::nullopt;
    }
    const QJsonObject members = document.object();
    CrashReportObject record;
    for (const auto &[name, field] : crashReportTexts) {
        record.*field = members.value(QLatin1StringView(name)).toString();
    }
    record.date = QDateTime::fromString(members.value(dateName).toString(), Qt::ISODateWithMs);
    for (const QJsonValue frame : members.value(stackName).toArray()) {
        record.stackArray << frame.toString();
    }
    return record;
}

bool CrashReportObject::writeToFile(const QString &path) const
{
    struct Utf8Text {
        std::string bytes;
        std::string_view view() const { return bytes; }
    };
    std::optional<CrashReportFile::Time> time;
    if (date.isValid()) {
        time = CrashReportFile::Time(std::chrono::milliseconds(date.toMSecsSinceEpoch()));
    }
    return CrashReportFile(path, *this)
        .write(time, static_cast<std::size_t>(stackArray.size()),
               [this](std::size_t index) { return Utf8Text{stackArray[static_cast<qsizetype>(index)].toStdString()}; });
}

QString CrashReportObject::description() const
{
    QString text = u"STACK:\n"_s;
    for (const QString &frame : stackArray) {
        text += frame + u'\n';
    }
    return text;
}
