#pragma once

#include <QStringList>

#include <functional>
#include <mutex>

class FolderBookmarks;
class UserDefaults;

/// The folders that the user has granted the program, in the order granted, no path twice; remembered in the store as
/// bookmarks. The list behind the preferences' third pane. Safe on any thread.
class TrustedFolders {
public:
    /// Both must outlive this. The list is empty until load().
    TrustedFolders(UserDefaults &defaults, const FolderBookmarks &bookmarks);
    TrustedFolders(const TrustedFolders &) = delete;
    TrustedFolders &operator=(const TrustedFolders &) = delete;

    QStringList items() const;

    /// Takes over the remembered folders. Folders that no longer exist and entries that cannot be read are left out;
    /// the next commit() removes them from the store.
    void load();
    /// Adds a folder and remembers it at once. Nothing happens when it does not exist or is there already.
    void addToBookmarkWithURL(const QString &path);
    /// Takes these rows of items() out; numbers of no row are not looked at. The store is changed by commit() only.
    void removeRows(const QList<int> &rows);
    /// Remembers the list as it is now, without folders that are gone.
    void commit();

    /// Is called after each change of the list, on the thread that made it; it must not call back. When this returns,
    /// the handler before is not running any more.
    void setChangedHandler(std::function<void()> handler);

private:
    /// False when the path is there already.
    bool append(const QString &path);
    void loadBookmark(const QByteArray &data);
    void tellChanged();

    UserDefaults &defaults_;
    const FolderBookmarks &bookmarks_;
    mutable std::mutex mutex_; ///< guards the list, and the store's array while that is read and written
    QStringList aryItems;
    std::mutex handlerMutex_;
    std::function<void()> changed_;
};
