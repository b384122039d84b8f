#include "Shared/OutputName.h"

#include "Shared/PathParts.h"
#include "platform/files/FileSystem.h"

namespace {

QString token(int number)
{
    return u'(' + QString::number(number) + u')';
}

} // namespace

QString GlobalFun::makeSureFullPathIdentical(const QString &path, const QString &extension)
{
    QString candidate = path;
    const QString found = pathExtension(path);
    if (found.isEmpty() || found != extension) {
        candidate += u'.' + extension;
    }

    int number = 1;
    while (FileSystem::isTaken(candidate)) {
        const QString ending = pathExtension(candidate);
        QString rest = deletingPathExtension(candidate);
        const QString current = token(number);
        if (candidate.contains(current)) {
            rest.replace(current, token(++number));
        } else {
            rest += current;
        }
        candidate = rest + u'.' + ending;
    }
    return candidate;
}
