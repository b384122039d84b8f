#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Lasting grants for folders.
namespace GlobalFun {

/// The record that finds the folder again in a later run; nothing for an empty path, or when the folder cannot be
/// recorded.
std::optional<QByteArray> BookmarkDataForURL(const QString &folderPath);

} // namespace GlobalFun
