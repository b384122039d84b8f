#include "Shared/FolderWalk.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <map>
#include <utility>
#include <vector>

namespace {

struct Entry {
    QByteArray name;
    bool isPlainFile = false; ///< known to be neither folder nor link
};

/// Device and inode: the same for a folder by whatever path it is reached.
using Identity = std::pair<dev_t, ino_t>;

/// Where each folder has two links to the next, the number of paths doubles at every step.
constexpr int mostEntries = 64;

/// A folder that the walk is in. Its entries are read at once, so that a deep walk holds no open files.
struct Level {
    QByteArray path;
    Identity identity;
    std::vector<Entry> entries;
    std::size_t next = 0;
};

std::vector<Entry> entriesOf(const QByteArray &path)
{
    std::vector<Entry> entries;
    std::error_code end;
    std::filesystem::directory_iterator entry(path.toStdString(), end);
    for (; entry != std::filesystem::directory_iterator(); entry.increment(end)) {
        const bool isPlainFile = !entry->is_symlink() && entry->is_regular_file();
        entries.push_back({QByteArray::fromStdString(entry->path().filename().native()), isPlainFile});
    }
    return entries;
}

QByteArray joined(const QByteArray &folder, const QByteArray &name)
{
    QByteArray path;
    path.reserve(folder.size() + 1 + name.size());
    path.append(folder);
    if (!folder.endsWith('/')) {
        path.append('/');
    }
    return path.append(name);
}

} // namespace

void FolderWalk::walk(const QByteArray &folder, const Stop &stop, const Visit &visit, const TellLeftOut &tell)
{
    struct stat status = {};
    std::vector<Level> levels;
    std::map<Identity, int> timesEntered;
    const auto enter = [&](const QByteArray &path) {
        const Identity identity(status.st_dev, status.st_ino);
        if (std::ranges::find(levels, identity, &Level::identity) != levels.end()) {
            return;
        }
        const int times = ++timesEntered[identity];
        if (times <= mostEntries) {
            levels.push_back({path, identity, entriesOf(path)});
        } else if (times == mostEntries + 1 && tell) {
            tell(path, LeftOut::EnteredTooOften);
        }
    };
    if (::stat(folder.constData(), &status) == 0) {
        enter(folder);
    }

    while (!levels.empty() && !stop()) {
        Level &level = levels.back();
        if (level.next == level.entries.size()) {
            levels.pop_back();
            continue;
        }
        const Entry &entry = level.entries[level.next++];
        const QByteArray path = joined(level.path, entry.name);
        if (!entry.isPlainFile && ::stat(path.constData(), &status) != 0) {
            if (errno == ENAMETOOLONG && tell) {
                tell(path, LeftOut::PathTooLong);
            }
        } else if (entry.isPlainFile || !S_ISDIR(status.st_mode)) {
            visit({path, entry.name, levels.size() - 1});
        } else {
            enter(path);
        }
    }
}
