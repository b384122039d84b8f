#pragma once

#include <QColor>
#include <QString>

#include <optional>

class UserDefaults;

/// Colours as text for the user defaults store, as a person writes them too.
namespace ColorArchive {

/// "#aarrggbb", eight bits a component, whatever the model in which the colour was given.
QString archive(const QColor &color);

/// Reads "#aarrggbb" and "#rrggbb", in either case; nothing for any other text.
std::optional<QColor> unarchive(QStringView text);

/// The colour archived under the key; `fallback` when the key is absent or its text is no colour.
QColor storedColor(const UserDefaults &defaults, QAnyStringView key, const QColor &fallback);

} // namespace ColorArchive
