#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

class FolderBookmarks;

/// Lasting grants for folders.
namespace GlobalFun {

/// The record that finds the folder again in a later run; nothing for an empty path, or when the folder cannot be
/// recorded. Safe on any thread.
std::optional<QByteArray> BookmarkDataForURL(const FolderBookmarks &bookmarks, const QString &folderPath);

} // namespace GlobalFun
