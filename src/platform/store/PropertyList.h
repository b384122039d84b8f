#pragma once

#include <QByteArray>
#include <QVariantMap>

#include <optional>

/// Property lists: the dictionaries that seed the settings and describe the program.
namespace PropertyList {

/// The dictionary in an XML property list; nothing when the bytes are none, or their root is no dictionary.
/// Values become bool, qlonglong, double, QString, QByteArray, QVariantList, QVariantMap.
std::optional<QVariantMap> parseDictionary(const QByteArray &xml);

} // namespace PropertyList
