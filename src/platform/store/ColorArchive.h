#pragma once

#include <QByteArray>
#include <QColor>

#include <array>
#include <optional>

/// Colours as bytes for the user defaults store: a small JSON text with the colour space and four components.
namespace ColorArchive {

/// Red, green, blue and alpha from 0 to 1, whatever the model in which the colour was given. An invalid colour is
/// opaque black.
std::array<double, 4> deviceRGB(const QColor &color);

/// Loses nothing of a colour of up to 16 bits a component.
QByteArray archive(const QColor &color);

/// Nothing when the bytes are no archived colour; components outside 0 to 1 are refused as well.
std::optional<QColor> unarchive(const QByteArray &data);

} // namespace ColorArchive
