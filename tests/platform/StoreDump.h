#pragma once

#include "platform/UserDefaults.h"

#include <QDebug>

/// What each reader says of each key, to compare what two processes see.
inline QByteArray dumpStore(const UserDefaults &defaults, const QStringList &keys)
{
    QString dump;
    for (const QString &key : keys) {
        QDebug(&dump) << key << defaults.contains(key) << defaults.boolValue(key) << defaults.int64Value(key)
                      << QByteArray::number(defaults.doubleValue(key), 'g', 17) << defaults.textValue(key)
                      << defaults.dataValue(key).value_or("none") << defaults.arrayValue(key).value_or(QVariantList{0});
    }
    return dump.toUtf8();
}
