#include "Shared/Bookmark.h"

#include "platform/files/FolderBookmarks.h"

std::optional<QByteArray> GlobalFun::BookmarkDataForURL(const FolderBookmarks &bookmarks, const QString &folderPath)
{
    return folderPath.isEmpty() ? std::nullopt : bookmarks.bookmarkData(folderPath);
}
