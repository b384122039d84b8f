#include "platform/store/UserDefaults.h"

#include "platform/store/StoreFile.h"
#include "platform/store/StoredValue.h"

#include <QJsonObject>

#include <algorithm>
#include <limits>
#include <mutex>
#include <utility>

/// JSON values are read, copied and destroyed under the mutex only: ThreadSanitizer does not see how they count their
/// owners. The class therefore gives out texts, bytes and lists.
class UserDefaults::Private {
public:
    explicit Private(const QString &storePath) : path(storePath) {}

    /// What `reader` makes of the uppermost layer's value, an undefined one when there is none.
    template<typename Reader>
    auto read(QAnyStringView key, Reader reader) const
    {
        const QString name = key.toString();
        const std::scoped_lock lock(valuesMutex);
        return reader(find(name));
    }
    void change(QAnyStringView key, const QJsonValue &value);
    bool synchronize();

    const QString path;
    mutable std::mutex valuesMutex; ///< guards all that follows; never held while waiting for the disk
    QJsonObject volatileValues;
    QJsonObject changes; ///< not on disk yet
    QJsonObject stored;
    QJsonObject registered;

private:
    QJsonValue find(const QString &key) const;

    std::mutex diskMutex_; ///< one synchronisation at a time; taken before valuesMutex
};

QJsonValue UserDefaults::Private::find(const QString &key) const
{
    for (const QJsonObject *layer : {&volatileValues, &changes, &stored, &registered}) {
        if (QJsonValue value = layer->value(key); !value.isUndefined() && !value.isNull()) {
            return value;
        }
    }
    return QJsonValue::Undefined;
}

void UserDefaults::Private::change(QAnyStringView key, const QJsonValue &value)
{
    const std::scoped_lock lock(valuesMutex);
    changes.insert(key.toString(), value);
}

bool UserDefaults::Private::synchronize()
{
    const std::scoped_lock diskLock(diskMutex_);
    std::unique_lock lock(valuesMutex);
    const QJsonObject written = changes;
    lock.unlock();
    auto onDisk = StoreFile::update(path, written);
    lock.lock();
    if (!onDisk) {
        return false;
    }
    stored = *std::exchange(onDisk, std::nullopt);
    for (auto change = written.constBegin(); change != written.constEnd(); ++change) {
        if (changes.value(change.key()) == change.value()) { // else it was changed again meanwhile
            changes.remove(change.key());
        }
    }
    return true;
}

UserDefaults::UserDefaults(const QString &storePath) : d_(std::make_unique<Private>(storePath))
{
    d_->synchronize();
}

UserDefaults::~UserDefaults()
{
    if (!d_->changes.isEmpty()) {
        d_->synchronize();
    }
}

bool UserDefaults::contains(QAnyStringView key) const
{
    return d_->read(key, [](const QJsonValue &value) { return !value.isUndefined(); });
}

bool UserDefaults::boolValue(QAnyStringView key) const
{
    return d_->read(key, StoredValue::boolean);
}

std::int32_t UserDefaults::int32Value(QAnyStringView key) const
{
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(int64Value(key), Limits::min(), Limits::max()));
}

std::int64_t UserDefaults::int64Value(QAnyStringView key) const
{
    return d_->read(key, StoredValue::integer);
}

QString UserDefaults::textValue(QAnyStringView key) const
{
    return d_->read(key, StoredValue::text);
}

std::optional<QByteArray> UserDefaults::dataValue(QAnyStringView key) const
{
    return d_->read(key, StoredValue::data);
}

std::optional<QVariantList> UserDefaults::arrayValue(QAnyStringView key) const
{
    return d_->read(key, StoredValue::list);
}

void UserDefaults::setBool(QAnyStringView key, bool value)
{
    d_->change(key, value);
}

void UserDefaults::setInteger(QAnyStringView key, std::int64_t value)
{
    d_->change(key, qint64{value});
}

void UserDefaults::setText(QAnyStringView key, const QString &value)
{
    d_->change(key, StoredValue::from(value));
}

void UserDefaults::setData(QAnyStringView key, const QByteArray &value)
{
    d_->change(key, StoredValue::from(value));
}

void UserDefaults::setArray(QAnyStringView key, const QVariantList &value)
{
    d_->change(key, StoredValue::from(value));
}

void UserDefaults::registerDefaults(const QVariantMap &defaults)
{
    const std::scoped_lock lock(d_->valuesMutex);
    d_->registered = {};
    for (auto value = defaults.cbegin(); value != defaults.cend(); ++value) {
        d_->registered.insert(value.key(), StoredValue::from(*value));
    }
}

void UserDefaults::setVolatile(QAnyStringView key, const QVariant &value)
{
    const std::scoped_lock lock(d_->valuesMutex);
    d_->volatileValues.insert(key.toString(), StoredValue::from(value));
}

bool UserDefaults::synchronize()
{
    return d_->synchronize();
}
