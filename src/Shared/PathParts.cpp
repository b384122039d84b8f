#include "Shared/PathParts.h"

namespace {

/// Where the slashes at the end begin; the root keeps its one.
qsizetype endOfPath(const QString &path)
{
    qsizetype end = path.size();
    while (end > 1 && path.at(end - 1) == u'/') {
        --end;
    }
    return end;
}

/// Where the last component begins.
qsizetype startOfName(const QString &path)
{
    const qsizetype end = endOfPath(path);
    return path.left(end).lastIndexOf(u'/') + 1;
}

/// Where the dot before the extension stands; -1 when there is none.
qsizetype dotOfExtension(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot >= startOfName(path) ? dot : -1;
}

} // namespace

QString GlobalFun::lastPathComponent(const QString &path)
{
    const qsizetype start = startOfName(path);
    const qsizetype end = endOfPath(path);
    return start < end ? path.mid(start, end - start) : path.left(end);
}

QString GlobalFun::deletingLastPathComponent(const QString &path)
{
    const QString folder = path.left(startOfName(path));
    return folder.left(endOfPath(folder));
}

QString GlobalFun::pathExtension(const QString &path)
{
    const qsizetype dot = dotOfExtension(path);
    return dot < 0 ? QString() : path.mid(dot + 1, endOfPath(path) - dot - 1);
}

QString GlobalFun::deletingPathExtension(const QString &path)
{
    const qsizetype dot = dotOfExtension(path);
    return dot < 0 ? path : path.left(dot);
}

QString GlobalFun::appendingPathComponent(const QString &path, const QString &component)
{
    const QString joined = path.isEmpty() ? component : path + u'/' + component;
    QString result;
    result.reserve(joined.size());
    for (const QChar letter : joined) {
        if (letter != u'/' || !result.endsWith(u'/')) {
            result += letter;
        }
    }
    return result.left(endOfPath(result));
}
