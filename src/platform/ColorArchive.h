#pragma once

#include <QByteArray>
#include <QColor>

#include <optional>

/// Colours as bytes for the user defaults store: a small JSON text with the colour space and four components.
namespace ColorArchive {

QByteArray archive(const QColor &color);

/// Nothing when the bytes are no archived colour; components outside 0 to 1 are refused as well.
std::optional<QColor> unarchive(const QByteArray &data);

} // namespace ColorArchive
