#pragma once

#include <QString>

/// Folders that must be there.
namespace GlobalFun {

/// Makes the folder at the path with all missing folders above it. True when a folder is there in the end; a file in
/// the way is left alone and yields false, as does an empty path.
bool MakeSureFolderExsist(const QString &path);

} // namespace GlobalFun
