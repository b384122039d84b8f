#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Paths as the desktop passes them round: in "file:" addresses, byte for byte.
///
/// Not by QUrl: it reads escaped bytes as UTF-8, and changes the names that are not.
namespace FileUri {

/// The address of a path from the root, as PathText; plain ASCII.
QByteArray fromPath(QStringView path);

/// The path of an address on this machine; nothing for any other kind. An escape becomes its byte. Some senders do not
/// escape percent signs, question marks and number signs: these belong to the path.
std::optional<QString> toPath(QByteArrayView uri);

} // namespace FileUri
