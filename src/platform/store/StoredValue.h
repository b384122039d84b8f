#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QVariant>

#include <cstdint>
#include <optional>

/// The values of the user defaults store, as they stand in its file: those of JSON, and bytes as the text "base64:…".
/// A text that itself begins with "base64:" or "text:" has "text:" put before it.
namespace StoredValue {

/// The value for a boolean, number, text, bytes, or list of these; null, which reads as absent, for an invalid one.
QJsonValue from(const QVariant &value);

// These never fail, so that what a person has typed into the file reads as it was meant.

/// Empty for lists, objects and null. Bytes read as by PathText.
QString text(const QJsonValue &value);
/// Nothing for anything but bytes.
std::optional<QByteArray> data(const QJsonValue &value);
/// True for true, yes and every number but 0, also as texts.
bool boolean(const QJsonValue &value);
/// Cut towards zero and clamped, also from a text; 0 for what is no number, 1 for true and yes.
std::int64_t integer(const QJsonValue &value);
/// Bytes as QByteArray, texts as QString; nothing for anything but a list.
std::optional<QVariantList> list(const QJsonValue &value);

} // namespace StoredValue
