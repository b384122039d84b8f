#pragma once

#include <QByteArray>
#include <QImage>

/// The image as a GIF file with at most 256 colours; empty bytes when it cannot be encoded (over 65,535 pixels a side,
/// for example). Safe on any thread.
QByteArray encodeGif(const QImage &image);
