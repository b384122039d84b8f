#include "app/loading/MovieCandidates.h"

#include "Shared/MovieScan.h"
#include "Shared/PathParts.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <cerrno>
#include <system_error>

namespace {

bool isVob(const QString &path)
{
    return GlobalFun::pathExtension(path).compare(u"vob", Qt::CaseInsensitive) == 0;
}

QString systemError(int number)
{
    return QString::fromStdString(std::generic_category().message(number));
}

template<typename... Parameters, typename... Arguments>
void tell(const std::function<void(Parameters...)> &call, const Arguments &...arguments)
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
        if (cancelled) {
            break;
        }
        const auto status = FileSystem::linkStatus(path);
        if (!status) {
            tell(events.unreadable, path, u"lstat error: " + systemError(errno));
        } else if (S_ISDIR(status->st_mode)) {
            const auto leftOut = [&events](const QByteArray &place, FolderWalk::LeftOut why) {
                if (why == FolderWalk::LeftOut::PathTooLong) {
                    tell(events.unreadable, PathText::fromBytes(place), systemError(ENAMETOOLONG));
                } else {
                    tell(events.linkedTooOften, PathText::fromBytes(place));
                }
            };
            const QStringList found = GlobalFun::fileListAtDirenctory(path, extensions, cancelled, leftOut);
            candidates += found;
            if (!FileSystem::isAllowed(path, R_OK | X_OK)) {
                tell(events.unreadable, path, systemError(errno));
            } else if (found.isEmpty()) {
                tell(events.emptyFolder, path);
            }
            tell(events.folder, path);
        } else if (isVob(path) && !acceptVob) {
            tell(events.vobRefused, path);
        } else {
            candidates += path;
        }
    }
    return candidates;
}
