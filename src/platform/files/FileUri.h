#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Paths as the desktop passes them round: in "file:" addresses, byte for byte.
///
/// QUrl is no help here: it takes the escaped bytes for UTF-8, and what is none comes out as another name.
namespace FileUri {

/// The address of a path from the root, as PathText; plain ASCII.
QByteArray fromPath(QStringView path);

/// The path of an address on this machine; nothing for any other kind. What is escaped becomes its byte; a percent
/// sign, question mark or number sign that a careless sender has left unescaped belongs to the path.
std::optional<QString> toPath(QByteArrayView uri);

} // namespace FileUri
