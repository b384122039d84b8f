#include "platform/store/UserDefaults.h"

#include "platform/store/StoreFile.h"
#include "platform/store/StoredValue.h"

#include <algorithm>
#include <limits>
#include <mutex>
#include <utility>

/// Values are looked at, copied and dropped under the mutex only: a QVariant counts its owners out of sight of
/// ThreadSanitizer. What leaves the class are texts, bytes and lists, which do not.
class UserDefaults::Private {
public:
    explicit Private(const QString &storePath) : path(storePath) {}

    /// What `reader` makes of the uppermost layer's value, an invalid one when there is none.
    template<typename Reader>
    auto read(QAnyStringView key, Reader reader) const
    {
        const QString name = key.toString();
        const std::scoped_lock lock(valuesMutex);
        return reader(find(name));
    }
    void change(QAnyStringView key, const QVariant &value);
    bool synchronize();

    const QString path;
    mutable std::mutex valuesMutex; ///< guards all that follows; never held while waiting for the disk
    QVariantMap volatileValues;
    QVariantMap changes; ///< not on disk yet; an invalid value hides the stored one
    QVariantMap stored;
    QVariantMap registered;

private:
    QVariant find(const QString &key) const;

    std::mutex diskMutex; ///< one synchronisation at a time; taken before valuesMutex
};

QVariant UserDefaults::Private::find(const QString &key) const
{
    const auto change = changes.constFind(key);
    for (QVariant value : {volatileValues.value(key), change != changes.cend() ? *change : stored.value(key)}) {
        if (value.isValid()) {
            return value;
        }
    }
    return registered.value(key);
}

void UserDefaults::Private::change(QAnyStringView key, const QVariant &value)
{
    const std::scoped_lock lock(valuesMutex);
    changes.insert(key.toString(), StoredValue::normalized(value));
}

bool UserDefaults::Private::synchronize()
{
    const std::scoped_lock diskLock(diskMutex);
    std::unique_lock lock(valuesMutex);
    const QVariantMap written = changes;
    lock.unlock();
    auto onDisk = StoreFile::update(path, written);
    lock.lock();
    if (!onDisk) {
        return false;
    }
    stored = *std::exchange(onDisk, std::nullopt);
    for (auto change = written.cbegin(); change != written.cend(); ++change) {
        if (changes.value(change.key()) == *change) { // else it was changed again meanwhile
            changes.remove(change.key());
        }
    }
    return true;
}

UserDefaults::UserDefaults(const QString &storePath) : d(std::make_unique<Private>(storePath))
{
    d->synchronize();
}

UserDefaults::~UserDefaults()
{
    if (!d->changes.isEmpty()) {
        d->synchronize();
    }
}

bool UserDefaults::contains(QAnyStringView key) const
{
    return d->read(key, [](const QVariant &value) { return value.isValid(); });
}

bool UserDefaults::boolValue(QAnyStringView key) const
{
    return doubleValue(key) != 0;
}

std::int32_t UserDefaults::int32Value(QAnyStringView key) const
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(int64Value(key), Limits::min(), Limits::max()));
}

std::int64_t UserDefaults::int64Value(QAnyStringView key) const
{
    return d->read(key, StoredValue::integer);
}

double UserDefaults::doubleValue(QAnyStringView key) const
{
    return d->read(key, StoredValue::number);
}

QString UserDefaults::textValue(QAnyStringView key) const
{
    return d->read(key, StoredValue::text);
}

std::optional<QByteArray> UserDefaults::dataValue(QAnyStringView key) const
{
    return d->read(key, [](const QVariant &value) {
        return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray()) : std::nullopt;
    });
}

std::optional<QVariantList> UserDefaults::arrayValue(QAnyStringView key) const
{
    return d->read(key, [](const QVariant &value) {
        return value.typeId() == QMetaType::QVariantList ? std::optional(value.toList()) : std::nullopt;
    });
}

void UserDefaults::setBool(QAnyStringView key, bool value)
{
    d->change(key, value);
}

void UserDefaults::setInteger(QAnyStringView key, std::int64_t value)
{
    d->change(key, qlonglong{value});
}

void UserDefaults::setDouble(QAnyStringView key, double value)
{
    d->change(key, value);
}

void UserDefaults::setText(QAnyStringView key, const QString &value)
{
    d->change(key, value);
}

void UserDefaults::setData(QAnyStringView key, const QByteArray &value)
{
    d->change(key, value);
}

void UserDefaults::setArray(QAnyStringView key, const QVariantList &value)
{
    d->change(key, value);
}

void UserDefaults::remove(QAnyStringView key)
{
    d->change(key, {});
}

void UserDefaults::registerDefaults(const QVariantMap &defaults)
{
    const std::scoped_lock lock(d->valuesMutex);
    d->registered.clear();
    for (auto value = defaults.cbegin(); value != defaults.cend(); ++value) {
        d->registered.insert(value.key(), StoredValue::normalized(*value));
    }
}

void UserDefaults::setVolatile(QAnyStringView key, const QVariant &value)
{
    const std::scoped_lock lock(d->valuesMutex);
    d->volatileValues.insert(key.toString(), StoredValue::normalized(value));
}

bool UserDefaults::synchronize()
{
    return d->synchronize();
}
