#pragma once

#include <QString>

#include <cstdint>
#include <optional>

/// Names and places of the images that an export writes.
namespace OutputFile {

/// The extension for a value of "OutputFormatKey"; nothing when no format has that number.
std::optional<QString> extensionForFormat(std::int64_t format);

/// A path in `folder` named after the movie at which nothing exists yet. A name that would be longer than the file
/// system allows is shortened.
QString freePath(const QString &folder, const QString &moviePath, const QString &extension);

/// Whether this process may make files in the folder.
bool isWritableFolder(const QString &folder);

} // namespace OutputFile
