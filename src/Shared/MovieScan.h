#pragma once

#include "Shared/FolderWalk.h"
#include "platform/threads/CancelFlag.h"

#include <QString>
#include <QStringList>

/// The search for movies in folders.
namespace GlobalFun {

/// The full paths of all files below the folder whose extension is one of `filter` in any letter case, in the order of
/// the folders' listings, hidden files included. Links are followed, but no folder is entered again inside itself, nor
/// more than 64 times; `tell` hears of what is left out. Setting `cancelled` ends the search soon, with what has been
/// found. Safe on any thread.
QStringList fileListAtDirenctory(const QString &folder, const QStringList &filter, const CancelFlag &cancelled,
                                 const FolderWalk::TellLeftOut &tell = {});

} // namespace GlobalFun
