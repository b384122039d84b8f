#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// The folders that stand in the way of writing collages beside their movies.
struct SameOriginRefusals {
    QStringList folders; ///< in the order of the movies; one may stand here more than once
    QString text;        ///< each refused movie's path in quotes on a line of its own

    bool isEmpty() const { return folders.isEmpty(); }

    /// The alert's message: it names the last of the movies only.
    QString message() const;
};

/// Looks at the folders of the movies, in order, and gives up after five that cannot be written.
SameOriginRefusals findSameOriginRefusals(const QStringList &moviePaths,
                                          const std::function<bool(const QString &folder)> &isWritable);
