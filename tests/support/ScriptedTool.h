#pragma once

#include "support/ScratchFolder.h"

/// A shell script that stands for an external tool.
inline QString scriptedTool(const ScratchFolder &folder, const QByteArray &name, const QByteArray &script)
{
    QString path = folder.write(name, "#!/bin/sh\n" + script + "\n");
    std::filesystem::permissions(folder.bytes(name).toStdString(), std::filesystem::perms(0755));
    return path;
}
