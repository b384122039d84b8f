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
/// Readers never fail: a value of another type is converted as well as it can be, an absent one reads as false, 0 or
/// nothing. Any text but the empty one is a key. All calls are safe on any thread. Writes reach the disk at
/// synchronize() or on destruction.
class UserDefaults {
public:
    /// Opens the INI file at `storePath` (made with its folder at the first write). A file that cannot be parsed is
    /// copied aside first ("NAME.broken", "NAME.broken(1)", …) and the copy is named in the log.
    explicit UserDefaults(const QString &storePath);
    ~UserDefaults();
    UserDefaults(const UserDefaults &) = delete;
    UserDefaults &operator=(const UserDefaults &) = delete;

    /// Whether any layer has a value for the key.
    bool contains(QAnyStringView key) const;

    /// Text is true when it says yes or true (any case) or is a number other than 0.
    bool boolValue(QAnyStringView key) const;
    /// Fractions are cut towards zero ("12.9" reads 12), values out of range are clamped, what is no number reads 0;
    /// true and yes read 1.
    std::int32_t int32Value(QAnyStringView key) const;
    std::int64_t int64Value(QAnyStringView key) const;
    /// Never NaN, but infinite for an infinity or a text too large for a double.
    double doubleValue(QAnyStringView key) const;
    /// An array reads as its elements with ", " between.
    QString textValue(QAnyStringView key) const;
    /// Nothing when the key is absent or holds something else than bytes.
    std::optional<QByteArray> dataValue(QAnyStringView key) const;
    /// Nothing when the key is absent or holds something else than an array. Elements are QByteArray or QString.
    std::optional<QVariantList> arrayValue(QAnyStringView key) const;

    void setBool(QAnyStringView key, bool value);
    void setInteger(QAnyStringView key, std::int64_t value);
    void setDouble(QAnyStringView key, double value);
    void setText(QAnyStringView key, const QString &value);
    void setData(QAnyStringView key, const QByteArray &value);
    void setArray(QAnyStringView key, const QVariantList &value);
    /// Removes the stored value; a registered default shows again.
    void remove(QAnyStringView key);

    /// Replaces the lowest layer.
    void registerDefaults(const QVariantMap &defaults);
    /// Lays a value over the stored one for this run; an invalid value lets the stored one show again.
    void setVolatile(QAnyStringView key, const QVariant &value);

    /// Writes to disk and takes in what other processes have written. False, with a line in the log, when that failed.
    bool synchronize();

private:
    class Private;
    std::unique_ptr<Private> d;
};
