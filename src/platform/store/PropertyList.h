#pragma once

#include <QByteArray>
#include <QVariantMap>

#include <optional>

/// Property lists: the dictionaries that seed the settings and describe the program.
namespace PropertyList {

/// The dictionary in an XML property list: texts (QString), integers (qlonglong) and booleans by key. Nothing when the
/// bytes hold anything else.
std::optional<QVariantMap> parseDictionary(const QByteArray &xml);

} // namespace PropertyList
