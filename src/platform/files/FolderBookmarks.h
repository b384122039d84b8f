#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>

class QDBusConnection;

/// Where a bookmark leads.
struct ResolvedFolder {
    QString path;
    bool isStale = false; ///< nothing is there any more
};

/// Lasting references to folders that the user has granted: makes them, and finds the folders again in a later run
/// (interface). Safe on any thread.
class FolderBookmarks {
public:
    virtual ~FolderBookmarks() = default;

    /// The record of the folder; nothing for an empty path, or when nothing is there.
    virtual std::optional<QByteArray> BookmarkDataForURL(const QString &folderPath) const = 0;
    /// Nothing when the bytes are no record that leads anywhere here.
    virtual std::optional<ResolvedFolder> resolve(const QByteArray &data) const = 0;

    /// Those of this system: PortalBookmarks when the file at `sandboxMarker` says that the program runs in a sandbox,
    /// then asking the bus for the portal's folder (at most two seconds), otherwise PathBookmarks.
    static std::unique_ptr<FolderBookmarks> ofThisSystem(const QDBusConnection &sessionBus,
                                                         const QString &sandboxMarker);
};

/// Outside a sandbox, where a path is enough to reach a folder. The record is {"kind": "path", "path": its bytes,
/// percent-encoded, "dev": …, "inode": …}, the two numbers the file system's as signed 64-bit integers.
class PathBookmarks final : public FolderBookmarks {
public:
    std::optional<QByteArray> BookmarkDataForURL(const QString &folderPath) const override;
    std::optional<ResolvedFolder> resolve(const QByteArray &data) const override;
};

/// Inside a sandbox: a folder that the user has chosen shows up as MOUNT/id/name, where the document portal keeps it
/// accessible for good under that id. The record is {"kind": "doc", "id": …, "name": …, "path": …}, all
/// percent-encoded; the name goes on to the folder itself when that lies below the granted one. Other folders are
/// recorded by path, since the sandbox may have been given them as a whole.
class PortalBookmarks final : public FolderBookmarks {
public:
    explicit PortalBookmarks(const QString &mountPoint);

    std::optional<QByteArray> BookmarkDataForURL(const QString &folderPath) const override;
    std::optional<ResolvedFolder> resolve(const QByteArray &data) const override;

    /// Where the document portal shows its documents: what it says itself, else its usual place.
    static QString mountPointOf(const QDBusConnection &sessionBus);

private:
    const QString mount_; ///< with a slash at the end
};
