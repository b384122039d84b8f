#include "platform/UserDefaults.h"

#include "platform/StoreFile.h"
#include "platform/StoredValue.h"

#include <algorithm>
#include <limits>
#include <mutex>

class UserDefaults::Private {
public:
    explicit Private(const QString &storePath) : path(storePath) {}

    /// The uppermost layer's value; invalid when there is none.
    QVariant find(QAnyStringView key) const;
    void change(QAnyStringView key, const QVariant &value);
    bool synchronize();

    const QString path;
    mutable std::mutex valuesMutex; ///< guards all that follows; never held while waiting for the disk
    QVariantMap volatileValues;
    QVariantMap changes; ///< not on disk yet; an invalid value hides the stored one
    QVariantMap stored;
    QVariantMap registered;

private:
    std::mutex diskMutex; ///< one synchronisation at a time; taken before valuesMutex
};

QVariant UserDefaults::Private::find(QAnyStringView key) const
{
    const QString name = key.toString();
    const std::scoped_lock lock(valuesMutex);
    const auto change = changes.constFind(name);
    for (QVariant value : {volatileValues.value(name), change != changes.cend() ? *change : stored.value(name)}) {
        if (value.isValid())
            return value;
    }
    return registered.value(name);
}

void UserDefaults::Private::change(QAnyStringView key, const QVariant &value)
{
    const QVariant normalized = StoredValue::normalized(value);
    const std::scoped_lock lock(valuesMutex);
    changes.insert(key.toString(), normalized);
}

bool UserDefaults::Private::synchronize()
{
    const std::scoped_lock diskLock(diskMutex);
    const QVariantMap written = [this] {
        const std::scoped_lock lock(valuesMutex);
        return changes;
    }();
    const auto onDisk = StoreFile::update(path, written);
    if (!onDisk)
        return false;
    const std::scoped_lock lock(valuesMutex);
    stored = *onDisk;
    for (auto change = written.cbegin(); change != written.cend(); ++change) {
        if (changes.value(change.key()) == *change) // else it was changed again meanwhile
            changes.remove(change.key());
    }
    return true;
}

UserDefaults::UserDefaults(const QString &storePath) : d(std::make_unique<Private>(storePath))
{
    d->synchronize();
}

UserDefaults::~UserDefaults()
{
    if (!d->changes.isEmpty())
        d->synchronize();
}

bool UserDefaults::contains(QAnyStringView key) const
{
    return d->find(key).isValid();
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
    return StoredValue::integer(d->find(key));
}

double UserDefaults::doubleValue(QAnyStringView key) const
{
    return StoredValue::number(d->find(key));
}

QString UserDefaults::textValue(QAnyStringView key) const
{
    return StoredValue::text(d->find(key));
}

std::optional<QByteArray> UserDefaults::dataValue(QAnyStringView key) const
{
    const QVariant value = d->find(key);
    return value.typeId() == QMetaType::QByteArray ? std::optional(value.toByteArray()) : std::nullopt;
}

std::optional<QVariantList> UserDefaults::arrayValue(QAnyStringView key) const
{
    const QVariant value = d->find(key);
    return value.typeId() == QMetaType::QVariantList ? std::optional(value.toList()) : std::nullopt;
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
    QVariantMap normalized;
    for (auto value = defaults.cbegin(); value != defaults.cend(); ++value)
        normalized.insert(value.key(), StoredValue::normalized(*value));
    const std::scoped_lock lock(d->valuesMutex);
    d->registered = normalized;
}

void UserDefaults::setVolatile(QAnyStringView key, const QVariant &value)
{
    const QVariant normalized = StoredValue::normalized(value);
    const std::scoped_lock lock(d->valuesMutex);
    d->volatileValues.insert(key.toString(), normalized);
}

bool UserDefaults::synchronize()
{
    return d->synchronize();
}
