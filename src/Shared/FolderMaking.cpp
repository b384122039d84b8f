#include "Shared/FolderMaking.h"

#include "platform/files/FileSystem.h"
#include "platform/files/PathText.h"

#include <filesystem>

bool GlobalFun::MakeSureFolderExsist(const QString &path)
{
    // Its result is of no use here: it is also false when the folder was there before.
    std::error_code error;
    std::filesystem::create_directories(PathText::toBytes(path).toStdString(), error);
    return FileSystem::isFolder(path);
}
