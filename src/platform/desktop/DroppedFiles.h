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
/// sandbox the portal is asked first. Elsewhere the names are better: they need nobody's help, and they can be any
/// bytes, where the portal's are text; the portal is asked only about a drag that has nothing but a key.
class DroppedFiles {
public:
    /// Called with absolute paths, as PathText; with none when there are no files after all.
    using Taker = std::function<void(const QStringList &paths)>;

    /// Without a portal: files by their names only.
    DroppedFiles();
    /// A portal that does not answer within `portalPatience` is given up.
    DroppedFiles(QDBusConnection bus, bool isSandboxed, std::chrono::milliseconds portalPatience = defaultPatience);

    /// Whether it seems to be files that are dragged. Asks nobody but the drag's source, and not for a key: giving one
    /// out is work for it.
    static bool areIn(const QMimeData &data);

    /// Reads the data now and calls the taker on the main thread: before it returns when nobody has to be asked, else
    /// when the portal has answered, unless the receiver has gone by then. A portal that fails is a line in the log,
    /// and the files are those that the drag names.
    void fetch(const QMimeData &data, QObject &receiver, Taker taker) const;

private:
    static constexpr std::chrono::seconds defaultPatience{5};

    void askPortal(const QString &key, const QStringList &named, QObject &receiver, Taker taker) const;

    QDBusConnection bus_;
    bool isSandboxed_ = false;
    std::chrono::milliseconds portalPatience_ = defaultPatience;
};
