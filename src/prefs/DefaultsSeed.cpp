#include "prefs/DefaultsSeed.h"

#include "Shared/FolderMaking.h"
#include "Shared/PreferenceKeys.h"
#include "platform/Log.h"
#include "platform/store/PropertyList.h"
#include "platform/store/UserDefaults.h"

#include <QFile>

using namespace Qt::StringLiterals;

QByteArray DefaultsSeed::resource()
{
    QFile file(u":/DefaultsParames.plist"_s);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString DefaultsSeed::outputFolderUnder(const QString &home)
{
    return home + u"/Pictures/Tessarine";
}

bool DefaultsSeed::registDefaults(UserDefaults &defaults, const QByteArray &propertyList, const QString &home,
                                  OutputFolder made)
{
    std::optional<QVariantMap> values = PropertyList::parseDictionary(propertyList);
    const QString outputFolder = outputFolderUnder(home);
    if (made == OutputFolder::Now) {
        GlobalFun::MakeSureFolderExsist(outputFolder);
    }
    if (!values) {
        qCWarning(lcTessarine) << "the default settings cannot be read";
        return false;
    }
    values->insert(PreferenceKeys::outputFolder.key, outputFolder);
    values->insert(PreferenceKeys::sameAsOrigin.key, false);
    defaults.registerDefaults(*values);
    return true;
}
