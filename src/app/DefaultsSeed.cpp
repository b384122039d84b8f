#include "app/DefaultsSeed.h"

#include "platform/Log.h"
#include "platform/PreferenceKeys.h"
#include "platform/PropertyList.h"
#include "platform/UserDefaults.h"

#include <QFile>

QByteArray DefaultsSeed::resource()
{
    QFile file(QStringLiteral(":/DefaultsParames.plist"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString DefaultsSeed::outputFolderUnder(const QString &home)
{
    return home + u"/Pictures/Tessarine";
}

bool DefaultsSeed::registDefaults(UserDefaults &defaults, const QByteArray &propertyList, const QString &home)
{
    std::optional<QVariantMap> values = PropertyList::parseDictionary(propertyList);
    if (!values) {
        qCWarning(lcTessarine) << "the default settings cannot be read";
        return false;
    }
    values->insert(PreferenceKeys::outputFolder, outputFolderUnder(home));
    values->insert(PreferenceKeys::sameAsOrigin, false);
    defaults.registerDefaults(*values);
    return true;
}
