#include "platform/store/Bundle.h"

#include "platform/store/PropertyList.h"

#include <QFile>

using namespace Qt::StringLiterals;

Bundle::Bundle(const QByteArray &infoPlist) : values_(PropertyList::parseDictionary(infoPlist).value_or(QVariantMap{}))
{
}

Bundle Bundle::main()
{
    QFile resource(u":/Info.plist"_s);
    return Bundle(resource.open(QIODevice::ReadOnly) ? resource.readAll() : QByteArray());
}

QString Bundle::value(const QString &key) const
{
    return values_.value(key).toString();
}

QString Bundle::identifier() const
{
    return value(u"CFBundleIdentifier"_s);
}
