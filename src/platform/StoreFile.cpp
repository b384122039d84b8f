#include "platform/StoreFile.h"

#include "platform/IniText.h"
#include "platform/Log.h"
#include "platform/NewFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace StoreFile {
namespace {

constexpr qint64 maximumSize = 16'777'216; // thousands of times what the program writes

struct Loaded {
    QSettings::SettingsMap values;
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

/// Nothing when the device cannot be read or holds something else than settings.
std::optional<Loaded> load(QIODevice &device, const QString &path)
{
    const QByteArray text = device.read(maximumSize + 1);
    if (text.size() > maximumSize)
        return std::nullopt;
    const auto content = IniText::parse(text);
    return Loaded{.values = content.values, .expendable = content.complete || keepAside(path, text)};
}

/// QSettings reads and writes files only.
QFileDevice &asFile(QIODevice &device)
{
    return dynamic_cast<QFileDevice &>(device);
}

/// Gives the file a time behind `previous`, where the file system lets it. Other processes' QSettings take a file of
/// the same size and millisecond for the one they know, and would write their old values over ours.
void setLaterTime(QFileDevice &file, const QDateTime &previous)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    file.setFileTime(qMax(now, previous.addMSecs(1)), QFileDevice::FileModificationTime);
}

/// QSettings' way to read a file.
bool readFile(QIODevice &device, QSettings::SettingsMap &values)
{
    const auto loaded = load(device, asFile(device).fileName());
    if (loaded)
        values = loaded->values;
    return loaded.has_value();
}

/// QSettings' way to write one: it holds the lock now, and the file that is about to be replaced is still there.
bool writeFile(QIODevice &device, const QSettings::SettingsMap &values)
{
    QFileDevice &file = asFile(device);
    QFile present(file.fileName());
    QDateTime previous = QDateTime::fromMSecsSinceEpoch(0);
    if (present.exists()) {
        if (!present.open(QIODevice::ReadOnly))
            return false;
        const auto loaded = load(present, present.fileName());
        if (!loaded || !loaded->expendable)
            return false;
        previous = present.fileTime(QFileDevice::FileModificationTime);
    }
    const QByteArray text = IniText::write(values);
    const bool written = file.write(text) == text.size() && file.flush();
    setLaterTime(file, previous);
    return written;
}

QSettings::Format storeFormat()
{
    static const auto format = QSettings::registerFormat(u"ini"_s, readFile, writeFile);
    return format;
}

QSettings::SettingsMap valuesOf(const QSettings &settings)
{
    QSettings::SettingsMap values;
    for (const QString &key : settings.allKeys())
        values.insert(key, settings.value(key));
    return values;
}

} // namespace

std::optional<QSettings::SettingsMap> update(const QString &path, const QSettings::SettingsMap &changes)
{
    if (const QFileInfo file(path); file.exists() && !file.isFile()) {
        qCWarning(lcTessarine) << "error: settings are no file:" << path;
        return std::nullopt; // opening a FIFO would wait for ever
    }
    // Made anew each time: its error status never goes back, and an event loop would sync a lasting one on its own.
    QSettings settings(path, storeFormat());
    for (auto change = changes.cbegin(); change != changes.cend(); ++change) {
        if (change->isValid()) {
            settings.setValue(change.key(), *change);
        } else {
            settings.remove(change.key());
        }
    }
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return valuesOf(settings);
    qCWarning(lcTessarine) << "error: settings cannot be" << (changes.isEmpty() ? "read from" : "written to") << path;
    return std::nullopt;
}

} // namespace StoreFile
