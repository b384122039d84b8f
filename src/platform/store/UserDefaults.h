#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <cstdint>
#include <memory>
#include <optional>

/// The user's settings by key, in three layers: a volatile value (this run only, never stored) lies over the stored
/// one, which lies over the registered default.
///
/// Booleans, whole numbers, texts, bytes and arrays keep their types in the file. Readers never fail: a value of
/// another type is converted as well as it can be, so that true, "yes" and 1 read alike; an absent one reads as false,
/// 0 or nothing, and so does null. All calls are safe on any thread. Writes reach the disk at synchronize() or on
/// destruction.
class UserDefaults {
public:
    /// Opens the JSON file at `storePath` (made with its folder at the first write). A file that cannot be parsed is
    /// copied aside first ("NAME.broken", "NAME.broken(1)", …) and the copy is named in the log.
    explicit UserDefaults(const QString &storePath);
    ~UserDefaults();
    UserDefaults(const UserDefaults &) = delete;
    UserDefaults &operator=(const UserDefaults &) = delete;

    /// Whether any layer has a value for the key.
    bool contains(QAnyStringView key) const;

    /// True for true, yes (any case) and every number but 0, also as texts.
    bool boolValue(QAnyStringView key) const;
    /// Fractions are cut towards zero (12.9 and "12.9" read 12), values out of range are clamped, what is no number
    /// reads 0; true and yes read 1.
    std::int32_t int32Value(QAnyStringView key) const;
    std::int64_t int64Value(QAnyStringView key) const;
    /// Empty for an array.
    QString textValue(QAnyStringView key) const;
    /// Nothing when the key is absent or holds something else than bytes.
    std::optional<QByteArray> dataValue(QAnyStringView key) const;
    /// Nothing when the key is absent or holds something else than an array. Bytes in it are QByteArray.
    std::optional<QVariantList> arrayValue(QAnyStringView key) const;

    void setBool(QAnyStringView key, bool value);
    void setInteger(QAnyStringView key, std::int64_t value);
    void setText(QAnyStringView key, const QString &value);
    void setData(QAnyStringView key, const QByteArray &value);
    void setArray(QAnyStringView key, const QVariantList &value);

    /// Replaces the lowest layer.
    void registerDefaults(const QVariantMap &defaults);
    /// Lays a value over the stored one for this run; an invalid value lets the stored one show again.
    void setVolatile(QAnyStringView key, const QVariant &value);

    /// Writes to disk and takes in what other processes have written. False, with a line in the log, when that failed.
    bool synchronize();

private:
    class Private;
    std::unique_ptr<Private> d_;
};
