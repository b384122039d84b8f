#pragma once

#include <QStringList>

class VXConfigManager;

/// Which files count as movies.
namespace GlobalFun {

/// The extensions, lower case, of the movies that are taken from a folder; "vob" only with the experimental flag.
QStringList getSupportedFmts(bool experimental);
QStringList getSupportedFmts(const VXConfigManager &config);

} // namespace GlobalFun
