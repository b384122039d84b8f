#include "app/MovieCandidates.h"

#include "Shared/MovieScan.h"
#include "Shared/PathParts.h"
#include "platform/PathText.h"

#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace {

bool isVob(const QString &path)
{
    return GlobalFun::pathExtension(path).compare(u"vob", Qt::CaseInsensitive) == 0;
}

template<typename Call, typename... Arguments>
void tell(const Call &call, const Arguments &...arguments)
{
    if (call) {
        call(arguments...);
    }
}

} // namespace

QStringList MovieCandidates::expand(const QStringList &paths, const QStringList &extensions, bool acceptVob,
                                    const Events &events, const CancelFlag &cancelled)
{
    QStringList candidates;
    for (const QString &path : paths) {
        struct stat status = {};
        if (cancelled) {
            break;
        }
        if (lstat(PathText::toBytes(path).constData(), &status) != 0) {
            const std::string error = std::generic_category().message(errno);
            tell(events.unreadable, path, QStringLiteral("lstat error: ") + QString::fromStdString(error));
        } else if (S_ISDIR(status.st_mode)) {
            const QStringList found = GlobalFun::fileListAtDirenctory(path, extensions, cancelled);
            candidates += found;
            tell(events.folder, path, found.size());
        } else if (isVob(path) && !acceptVob) {
            tell(events.vobRefused, path);
        } else {
            candidates += path;
        }
    }
    return candidates;
}
