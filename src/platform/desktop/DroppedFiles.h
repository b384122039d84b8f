#pragma once

#include <QDBusConnection>
#include <QStringList>

#include <chrono>
#include <functional>

class QMimeData;
class QObject;

/// Finds the files that something dragged stands for (value). Main thread.
///
/// A drag names its files as they are called where it comes from ("text/uri-list"). In a sandbox these names lead
/// nowhere, and the document portal lends the files under other ones, for a key that the drag carries besides. So in a
/// sandbox the portal is asked first. Elsewhere the names are used, since they may be any bytes and the portal's are
/// text; the portal is asked only about a drag that has a key and no names.
class DroppedFiles {
public:
    /// Called with absolute paths, as PathText; with none when there are no files after all.
    using Taker = std::function<void(const QStringList &paths)>;

    /// Without a portal: files by their names only.
    DroppedFiles();
    /// A portal that does not answer within `portalPatience` is given up.
    DroppedFiles(QDBusConnection bus, bool isSandboxed, std::chrono::milliseconds portalPatience = defaultPatience);

    /// Whether files seem to be dragged. Does not read the key, which the drag's source would have to make first.
    static bool areIn(const QMimeData &data);

    /// Reads the data now and calls the taker on the main thread: before it returns, or, if the portal is asked, when
    /// it has answered, unless the receiver has gone by then. When the portal fails, there is a line in the log and the
    /// files are those that the drag names.
    void fetch(const QMimeData &data, QObject &receiver, Taker taker) const;

private:
    static constexpr std::chrono::seconds defaultPatience{5};

    void askPortal(const QString &key, const QStringList &named, QObject &receiver, Taker taker) const;

    QDBusConnection bus_;
    bool isSandboxed_ = false;
    std::chrono::milliseconds portalPatience_ = defaultPatience;
};
