#include "prefs/TrustedFolders.h"

#include "Shared/FileHelper.h"
#include "Shared/PreferenceKeys.h"
#include "platform/Log.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderBookmarks.h"
#include "platform/files/PathText.h"
#include "platform/store/UserDefaults.h"

#include <utility>

using namespace Qt::StringLiterals;

TrustedFolders::TrustedFolders(UserDefaults &defaults, const FolderBookmarks &bookmarks) :
    defaults_(defaults), bookmarks_(bookmarks)
{
}

QStringList TrustedFolders::items() const
{
    const std::scoped_lock lock(mutex_);
    return aryItems;
}

void TrustedFolders::load()
{
    const auto entries = defaults_.arrayValue(PreferenceKeys::bookmarks);
    if (!entries) {
        return;
    }
    for (const QVariant &entry : *entries) {
        if (entry.typeId() == QMetaType::QByteArray) {
            loadBookmark(entry.toByteArray());
        }
    }
    tellChanged();
}

void TrustedFolders::loadBookmark(const QByteArray &data)
{
    const auto folder = bookmarks_.resolve(data);
    if (!folder || folder->isStale) {
        return;
    }
    {
        const std::scoped_lock lock(mutex_);
        if (!append(folder->path)) {
            return;
        }
    }
    qCInfo(lcTessarine).noquote() << "---" << PathText::forDisplay(folder->path);
    qCInfo(lcTessarine) << "---" << (FileSystem::checkAccess(folder->path, R_OK) ? 1 : 0);
}

bool TrustedFolders::append(const QString &path)
{
    if (aryItems.contains(path)) {
        qCInfo(lcTessarine).noquote() << u"已经存在"_s;
        return false;
    }
    aryItems << path;
    return true;
}

void TrustedFolders::addToBookmarkWithURL(const QString &path)
{
    if (path.isEmpty() || !FileHelper::fileExistsWithPath(path)) {
        return;
    }
    {
        const std::scoped_lock lock(mutex_);
        if (!append(path)) {
            return;
        }
        QVariantList entries = defaults_.arrayValue(PreferenceKeys::bookmarks).value_or(QVariantList());
        if (const auto data = bookmarks_.BookmarkDataForURL(path)) {
            entries << *data;
        }
        defaults_.setArray(PreferenceKeys::bookmarks, entries);
    }
    defaults_.synchronize();
    tellChanged();
}

void TrustedFolders::removeRows(const QList<int> &rows)
{
    {
        const std::scoped_lock lock(mutex_);
        QStringList kept;
        for (int row = 0; row < aryItems.size(); ++row) {
            if (!rows.contains(row)) {
                kept << aryItems.at(row);
            }
        }
        aryItems = kept;
    }
    tellChanged();
}

void TrustedFolders::commit()
{
    {
        const std::scoped_lock lock(mutex_);
        QVariantList entries;
        for (const QString &path : std::as_const(aryItems)) {
            const bool isThere = FileHelper::fileExistsWithPath(path);
            const auto data = isThere ? bookmarks_.BookmarkDataForURL(path) : std::nullopt;
            if (data) {
                entries << *data;
            }
        }
        defaults_.setArray(PreferenceKeys::bookmarks, entries);
    }
    defaults_.synchronize();
}

void TrustedFolders::setChangedHandler(std::function<void()> handler)
{
    const std::scoped_lock lock(handlerMutex_);
    changed_ = std::move(handler);
}

void TrustedFolders::tellChanged()
{
    const std::scoped_lock lock(handlerMutex_);
    if (changed_) {
        changed_();
    }
}
