#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

namespace GlobalFun {

/// The image as a file of the type that the extension names: tif, tiff, bmp, gif, jpg, jpeg or png, in lower case.
/// Empty for any other extension and when the image cannot be encoded. Every encoder runs at its defaults. Formats
/// without transparency show it as white. Safe on any thread.
QByteArray dataRepresentationOfType(const QImage &image, const QString &extension);

} // namespace GlobalFun
