#include "render/TileFrames.h"

QSize MovieTiles::reducedSize(std::int64_t tile) const
{
    const QSize wanted = sizeOf(tile);
    const bool isSmaller =
        !wanted.isEmpty() && wanted.width() <= movieSize.width() && wanted.height() <= movieSize.height();
    return isSmaller ? wanted : QSize();
}
