#include "platform/store/StoreFile.h"

#include "platform/Log.h"
#include "platform/files/NewFile.h"
#include "platform/store/IniText.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSaveFile>

#include <chrono>

using namespace Qt::StringLiterals;

namespace StoreFile {
namespace {

constexpr qint64 maximumSize = 16'777'216; // thousands of times what the program writes

struct Loaded {
    QVariantMap values;
    bool expendable = false; ///< writing `values` over the file loses nothing
};

bool holds(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() == contents.size() && file.readAll() == contents;
}

/// A copy that an earlier start has made serves as well.
bool keepAside(const QString &path, const QByteArray &contents)
{
    const QString base = path + u".broken"_s;
    QString copy = base;
    std::error_code error = writeNewFile(copy, contents);
    for (int n = 1; error == std::errc::file_exists && !holds(copy, contents); ++n) {
        copy = u"%1(%2)"_s.arg(base).arg(n);
        error = writeNewFile(copy, contents);
    }
    const bool kept = !error || error == std::errc::file_exists;
    if (kept) {
        qCWarning(lcTessarine) << "error: settings not understood in" << path << "- its contents are kept in" << copy;
    } else {
        qCWarning(lcTessarine) << "error: settings not understood in" << path
                               << "- and no copy could be kept:" << error.message().c_str();
    }
    return kept;
}

/// Nothing when the file cannot be read or holds something else than settings. No file is an empty one.
std::optional<Loaded> load(const QString &path)
{
    QFile file(path);
    if (!QFileInfo::exists(path)) {
        return Loaded{.values = {}, .expendable = true};
    }
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) { // opening a FIFO would wait for ever
        return std::nullopt;
    }
    const QByteArray text = file.read(maximumSize + 1);
    if (text.size() > maximumSize || file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    const auto content = IniText::parse(text);
    return Loaded{.values = content.values, .expendable = content.complete || keepAside(path, text)};
}

/// Waits for other processes, but not for one that hangs. QLockFile's own waiting sleeps ever longer, and others could
/// always be quicker.
bool acquire(QLockFile &lock)
{
    const QDeadlineTimer deadline(std::chrono::seconds(10));
    while (!lock.tryLock(5)) {
        if (lock.error() != QLockFile::LockFailedError || deadline.hasExpired()) {
            return false;
        }
    }
    return true;
}

bool replace(const QString &path, const QVariantMap &values)
{
    QSaveFile file(path);
    const QByteArray text = IniText::write(values);
    return file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
}

std::optional<QVariantMap> readAll(const QString &path)
{
    const auto loaded = load(path);
    return loaded ? std::optional(loaded->values) : std::nullopt;
}

std::optional<QVariantMap> change(const QString &path, const QVariantMap &changes)
{
    QLockFile lock(path + u".lock"_s);
    if (!QDir().mkpath(QFileInfo(path).path()) || !acquire(lock)) {
        return std::nullopt;
    }
    const auto loaded = load(path);
    if (!loaded) {
        return std::nullopt;
    }
    QVariantMap values = loaded->values;
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (change->isValid()) {
            values.insert(change.key(), *change);
        } else {
            values.remove(change.key());
        }
    }
    const bool asWanted = values == loaded->values || (loaded->expendable && replace(path, values));
    return asWanted ? std::optional(values) : std::nullopt;
}

} // namespace

std::optional<QVariantMap> update(const QString &path, const QVariantMap &changes)
{
    auto values = changes.isEmpty() ? readAll(path) : change(path, changes);
    if (!values) {
        qCWarning(lcTessarine) << "error: settings cannot be" << (changes.isEmpty() ? "read from" : "written to")
                               << path;
    }
    return values;
}

} // namespace StoreFile
