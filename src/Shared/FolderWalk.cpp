#include "Shared/FolderWalk.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <optional>
#include <vector>

namespace {

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

struct Entry {
    QByteArray name;
    bool isPlainFile = false; ///< known to be neither folder nor link
};

/// A folder that the walk is in. Its entries are read at once, so that a deep walk holds no open files.
struct Level {
    QByteArray path;
    dev_t device = 0;
    ino_t inode = 0;
    std::vector<Entry> entries;
    std::size_t next = 0;
};

std::vector<Entry> entriesOf(const QByteArray &path)
{
    std::vector<Entry> entries;
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.constData()));
    if (!folder) {
        return entries;
    }
    while (const dirent *entry = ::readdir(folder.get())) {
        const char *name = entry->d_name;
        if (std::strcmp(name, ".") != 0 && std::strcmp(name, "..") != 0) {
            entries.push_back({name, entry->d_type == DT_REG});
        }
    }
    return entries;
}

/// The folder at the path as a level of the walk; nothing when the walk is inside it already.
std::optional<Level> enter(const QByteArray &path, const struct stat &status, const std::vector<Level> &around)
{
    const bool isInside = std::ranges::any_of(around, [&status](const Level &level) {
        return level.device == status.st_dev && level.inode == status.st_ino;
    });
    if (isInside) {
        return std::nullopt;
    }
    return Level{path, status.st_dev, status.st_ino, entriesOf(path)};
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

void FolderWalk::walk(const QByteArray &folder, const Stop &stop, const Visit &visit)
{
    struct stat status = {};
    std::vector<Level> levels;
    if (::stat(folder.constData(), &status) == 0) {
        levels.push_back(*enter(folder, status, levels));
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
            continue;
        }
        if (entry.isPlainFile || !S_ISDIR(status.st_mode)) {
            visit({path, entry.name, levels.size() - 1});
        } else if (auto below = enter(path, status, levels)) {
            levels.push_back(std::move(*below));
        }
    }
}
