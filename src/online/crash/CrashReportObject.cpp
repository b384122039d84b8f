#include "online/crash/CrashReportObject.h"

#include "Shared/HostIdentity.h"
#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"
#include "platform/store/Bundle.h"

#include <QByteArrayList>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The texts by the names that they have in the file form, in their order; the date and the stack follow.
constexpr std::array texts{
    std::pair{"osName"_L1, &CrashReportObject::osName},
    std::pair{"deviceModel"_L1, &CrashReportObject::deviceModel},
    std::pair{"deviceUniqueIdentifier"_L1, &CrashReportObject::deviceUniqueIdentifier},
    std::pair{"osVersion"_L1, &CrashReportObject::osVersion},
    std::pair{"version"_L1, &CrashReportObject::version},
    std::pair{"identifier"_L1, &CrashReportObject::identifier},
};
constexpr auto dateName = "date"_L1;
constexpr auto stackName = "stackArray"_L1;

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
    static constexpr qint64 longestRecord = qint64{1} << 20;
    const QByteArray text = FileSystem::contentsOf(path, longestRecord).value_or(QByteArray());
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject()) {
        return std::nullopt;
    }
    const QJsonObject members = document.object();
    CrashReportObject record;
    for (const auto &[name, field] : texts) {
        record.*field = members.value(name).toString();
    }
    record.date = QDateTime::fromString(members.value(dateName).toString(), Qt::ISODateWithMs);
    for (const QJsonValue frame : members.value(stackName).toArray()) {
        record.stackArray << frame.toString();
    }
    return record;
}

QByteArray CrashReportObject::fileForm() const
{
    QByteArrayList members; // QJsonObject has an order of its own
    const auto add = [&members](QLatin1StringView name, const QJsonValue &value) {
        const QByteArray object = QJsonDocument(QJsonObject{{name, value}}).toJson(QJsonDocument::Compact);
        members << object.sliced(1, object.size() - 2);
    };
    for (const auto &[name, field] : texts) {
        if (const QString &text = this->*field; !text.isNull()) {
            add(name, text);
        }
    }
    if (date.isValid()) {
        add(dateName, date.toUTC().toString(Qt::ISODateWithMs));
    }
    if (!stackArray.isEmpty()) {
        add(stackName, QJsonArray::fromStringList(stackArray));
    }
    return "{\n" + members.join(",\n") + "\n}\n";
}

bool CrashReportObject::writeToFile(const QString &path) const
{
    const QByteArray bytes = PathText::toBytes(path);
    const QByteArray temporary = bytes + ".new";
    return FileSystem::replaceFile(bytes.constData(), temporary.constData(), fileForm().toStdString());
}

QString CrashReportObject::description() const
{
    QString text = u"STACK:\n"_s;
    for (const QString &frame : stackArray) {
        text += frame + u'\n';
    }
    return text;
}
