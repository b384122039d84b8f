#include "Shared/Bookmark.h"

#include "platform/FolderBookmark.h"

std::optional<QByteArray> GlobalFun::BookmarkDataForURL(const QString &folderPath)
{
    return folderPath.isEmpty() ? std::nullopt : bookmarkData(folderPath);
}
