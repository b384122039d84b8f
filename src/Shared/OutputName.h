#pragma once

#include <QString>

/// Names for new files.
namespace GlobalFun {

/// A path with this extension (without its dot) at which nothing is yet, not even a dangling link: "clip.mp4" and "jpg"
/// give "clip.mp4.jpg", and when that is taken "clip.mp4(1).jpg", "clip.mp4(2).jpg" and so on. If the path already
/// contains such a number, also in the name of a folder, that number is increased. Nothing is created. Safe on any
/// thread.
QString makeSureFullPathIdentical(const QString &path, const QString &extension);

} // namespace GlobalFun
