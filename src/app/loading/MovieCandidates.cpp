#include "app/loading/MovieCandidates.h"

#include "Shared/MovieScan.h"
#include "Shared/PathParts.h"
#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <system_error>

namespace {

bool isVob(const QString &path)
{
    return GlobalFun::pathExtension(path).compare(u"vob", Qt::CaseInsensitive) == 0;
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
            tell(events.unreadable, path, u"lstat error: " + inWords(status.error()));
        } else if (S_ISDIR(status->st_mode)) {
            const auto leftOut = [&events](const QByteArray &place, FolderWalk::LeftOut why) {
                if (why == FolderWalk::LeftOut::PathTooLong) {
                    tell(events.unreadable, PathText::fromBytes(place),
                         inWords(std::make_error_code(std::errc::filename_too_long)));
                } else {
                    tell(events.linkedTooOften, PathText::fromBytes(place));
                }
            };
            const QStringList found = GlobalFun::fileListAtDirenctory(path, extensions, cancelled, leftOut);
            candidates += found;
            if (const auto access = FileSystem::checkAccess(path, R_OK | X_OK); !access) {
                tell(events.unreadable, path, inWords(access.error()));
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
