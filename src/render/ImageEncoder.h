#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

class QIODevice;

namespace GlobalFun {

/// Loads the toolkit's readers and writers of images, which it does else when the first image is read or written, and
/// which takes as long as dozens of those. On any thread.
void loadImageFormats();

/// Writes the image to an open device that can seek, as a file of the type that the extension names: one of
/// imageFormats or "gif", in lower case. False for any other extension, and when the image cannot be encoded or
/// written. Every encoder runs at its defaults. Formats without transparency show it as white. Safe on any thread.
bool writeRepresentationOfType(const QImage &image, const QString &extension, QIODevice &device);

/// The same as bytes; empty where that is false.
QByteArray dataRepresentationOfType(const QImage &image, const QString &extension);

} // namespace GlobalFun
