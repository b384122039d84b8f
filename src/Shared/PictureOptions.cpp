#include "Shared/PictureOptions.h"

#include "Shared/PreferenceKeys.h"
#include "platform/store/UserDefaults.h"

PictureOptions PictureOptions::fromDefaults(const UserDefaults &defaults)
{
    return {.source = frameSourceOf(defaults.int64Value(PreferenceKeys::frameSource)),
            .displayAspect = defaults.boolValue(PreferenceKeys::displayAspect),
            .deinterlace = defaults.boolValue(PreferenceKeys::deinterlace),
            .toneMap = defaults.boolValue(PreferenceKeys::toneMap),
            .skipBlank = defaults.boolValue(PreferenceKeys::skipBlank)};
}
