#pragma once

#include <QByteArray>
#include <QString>

/// Paths as text without losing a byte.
///
/// A file name on Linux is bytes, not text. Bytes that are not UTF-8 travel through QString as lone low surrogates
/// (U+DC80 to U+DCFF), so that every path survives the way from a folder listing to the disk and back. Anything that
/// touches the disk must take its bytes from here: Qt's own file classes cannot name such files.
namespace PathText {

/// The text for a path's bytes. Never fails; toBytes() gives the same bytes back.
QString fromBytes(QByteArrayView bytes);

/// The bytes of a path made by fromBytes(), or of ordinary text.
QByteArray toBytes(QStringView path);

/// The path for human eyes: bytes that are no text show as U+FFFD, line breaks and other control characters too.
QString forDisplay(QStringView path);

} // namespace PathText
