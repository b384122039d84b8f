#include "platform/store/StoreFile.h"

#include "platform/Log.h"
#include "platform/files/NewFile.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QSaveFile>

#include <chrono>

using namespace Qt::StringLiterals;

namespace StoreFile {
namespace {

constexpr qint64 maximumSize = 16'777'216; // thousands of times what the program writes
constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

struct Loaded {
    QJsonObject values;
    bool expendable = true; ///< writing `values` over the file loses nothing
};

bool holds(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.size() == contents.size() && file.readAll() == contents;
}

/// A copy that an earlier start has made serves as well.
bool keepAside(const QString &path, const QByteArray &contents, const QString &reason)
{
    const QString base = path + u".broken"_s;
    QString copy = base;
    auto written = writeNewFile(copy, contents);
    const auto isTaken = [&written] { return !written && written.error() == std::errc::file_exists; };
    for (int n = 1; isTaken() && !holds(copy, contents); ++n) {
        copy = u"%1(%2)"_s.arg(base).arg(n);
        written = writeNewFile(copy, contents);
    }
    const bool kept = written || isTaken();
    const QString outcome = kept ? QString(u"its contents are kept in "_s + copy)
                                 : QString(u"no copy could be kept: "_s + inWords(written.error()));
    QFile::setPermissions(copy, ownerOnly);
    qCWarning(lcTessarine).noquote() << "error: settings not understood in" << path + u':' << reason + u';' << outcome;
    return kept;
}

/// How many keys a JSON text has, those of inner objects too.
int keysIn(const QByteArray &json)
{
    int keys = 0;
    bool quoted = false;
    for (qsizetype i = 0; i < json.size(); ++i) {
        const char c = json.at(i);
        quoted ^= c == '"';
        keys += !quoted && c == ':' ? 1 : 0;
        i += c == '\\' ? 1 : 0; // what it escapes is no quote
    }
    return keys;
}

/// What would be lost if the document were written over the text that it was read from; empty when nothing would.
QString problemOf(const QByteArray &text, const QJsonDocument &document, const QJsonParseError &error)
{
    if (error.error != QJsonParseError::NoError) {
        return u"%1 in line %2"_s.arg(error.errorString()).arg(text.first(error.offset).count('\n') + 1);
    }
    if (!document.isObject()) {
        return u"no settings in braces"_s;
    }
    // The parser drops all but the last of equal keys without a word.
    return keysIn(text) == keysIn(document.toJson()) ? QString() : u"a key stands there twice"_s;
}

/// Nothing when the file cannot be read or holds something else than settings. No file is an empty one.
std::optional<Loaded> load(const QString &path)
{
    QFile file(path);
    if (!QFileInfo::exists(path)) {
        return Loaded{};
    }
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) { // opening a FIFO would wait for ever
        return std::nullopt;
    }
    const QByteArray text = file.read(maximumSize + 1);
    if (text.size() > maximumSize || file.error() != QFileDevice::NoError) {
        return std::nullopt;
    }
    if (text.trimmed().isEmpty()) {
        return Loaded{};
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    const QString problem = problemOf(text, document, error);
    return Loaded{.values = document.object(), .expendable = problem.isEmpty() || keepAside(path, text, problem)};
}

/// Waits for other processes, but not for one that hangs. Not by QLockFile's own waiting, which sleeps longer each
/// time, so that other processes could get the lock first every time.
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

bool replace(const QString &path, const QJsonObject &values)
{
    QSaveFile file(path);
    const QByteArray text = QJsonDocument(values).toJson();
    return file.open(QIODevice::WriteOnly) && file.setPermissions(ownerOnly) && file.write(text) == text.size() &&
           file.commit();
}

std::optional<QJsonObject> readAll(const QString &path)
{
    const auto loaded = load(path);
    return loaded ? std::optional(loaded->values) : std::nullopt;
}

std::optional<QJsonObject> change(const QString &path, const QJsonObject &changes)
{
    QLockFile lock(path + u".lock"_s);
    if (!QDir().mkpath(QFileInfo(path).path()) || !acquire(lock)) {
        return std::nullopt;
    }
    const auto loaded = load(path);
    if (!loaded) {
        return std::nullopt;
    }
    QJsonObject values = loaded->values;
    for (auto change = changes.constBegin(); change != changes.constEnd(); ++change) {
        values.insert(change.key(), change.value());
    }
    const bool asWanted = values == loaded->values || (loaded->expendable && replace(path, values));
    return asWanted ? std::optional(values) : std::nullopt;
}

} // namespace

std::optional<QJsonObject> update(const QString &path, const QJsonObject &changes)
{
    auto values = changes.isEmpty() ? readAll(path) : change(path, changes);
    if (!values) {
        qCWarning(lcTessarine) << "error: settings cannot be" << (changes.isEmpty() ? "read from" : "written to")
                               << path;
    }
    return values;
}

} // namespace StoreFile
