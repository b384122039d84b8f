#pragma once

#include <QVariant>

#include <cstdint>

/// The values of the user defaults store. Whatever type comes in, it is held as one of the three that survive a
/// restart: text, bytes, or a list of these. So a value reads the same before and after the program is restarted, and
/// in every layer.
namespace StoredValue {

/// The text, bytes (QByteArray) or list (QVariantList) for any value; an invalid one stays invalid.
QVariant normalized(const QVariant &value);

// These read a normalized value and never fail.

/// A list reads as its elements with ", " between, which is how a path with a comma in it looks when a user has typed
/// it into the file without quotes.
QString text(const QVariant &value);
/// 0 for what is no number, NaN included; true and yes are 1.
double number(const QVariant &value);
/// As number(), cut towards zero and clamped.
std::int64_t integer(const QVariant &value);

} // namespace StoredValue
