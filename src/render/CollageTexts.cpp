#include "render/CollageTexts.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"
#include "render/TextBlock.h"

CollageTextStyles CollageTextStyles::fromDefaults(const UserDefaults &defaults)
{
    const QFont font = TextBlock::systemFont();
    return {{ColorArchive::storedColor(defaults, PreferenceKeys::metadataTextColor, Qt::white), font},
            {ColorArchive::storedColor(defaults, PreferenceKeys::gridTextColor, Qt::black), font}};
}

CollageTextItems CollageTextItems::fromDefaults(const UserDefaults &defaults)
{
    return {defaults.int32Value(PreferenceKeys::metadataText), defaults.int64Value(PreferenceKeys::gridTextPosition)};
}
