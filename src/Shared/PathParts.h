#pragma once

#include <QString>

/// Paths as text, taken apart and put together. None of this looks at the disk; texts are those of PathText.
namespace GlobalFun {

/// "/a/b.mp4" gives "b.mp4"; slashes at the end do not count.
QString lastPathComponent(const QString &path);

/// The path without its last component: "/a/b" gives "/a", "/a" gives "/", "a" gives the empty text.
QString deletingLastPathComponent(const QString &path);

/// What follows the last dot of the last component: "/a/b.tar.gz" gives "gz", "/a/.hidden" gives "hidden". Empty when
/// there is no dot.
QString pathExtension(const QString &path);

/// The path without that dot and what follows it.
QString deletingPathExtension(const QString &path);

/// The path and the component (or several) with one slash between any two, and none at the end.
QString appendingPathComponent(const QString &path, const QString &component);

} // namespace GlobalFun
