#include "collage/DefaultParameters.h"

#include "media/VXMediaInfoItem.h"
#include "platform/PreferenceKeys.h"
#include "platform/StoredColor.h"

namespace {

// Black leaders and credits say little: longer movies leave out this much at either end.
constexpr double leaderSeconds = 2.0;

} // namespace

CollageSettings DefaultParameters::settingsOfNewMovie(const UserDefaults &defaults, const VXMediaInfoItem &movie)
{
    CollageSettings settings;
    if (movie.duration > 2.0 * leaderSeconds) {
        settings.startPoint = leaderSeconds;
        settings.endPoint = movie.duration - leaderSeconds;
    }
    settings.rowNumber = defaults.int32Value(PreferenceKeys::rowNumber);
    settings.columeNumber = defaults.int32Value(PreferenceKeys::columeNumber);
    settings.gridWidth = defaults.int32Value(PreferenceKeys::tileWidth);
    settings.gridHeight = settings.gridWidth * movie.pixHeight / movie.pixWidth;
    settings.backgroundColor = storedColor(defaults, PreferenceKeys::backgroundColor, Qt::black);
    settings.gridBorderColor = storedColor(defaults, PreferenceKeys::tileBorderColor, Qt::white);
    settings.gridBorderWidth = defaults.int32Value(PreferenceKeys::tileBorderWidth);
    // Crossed on purpose: the horizontal key holds what becomes the gap between rows. Stores in use rely on it.
    settings.rowSpace = defaults.int32Value(PreferenceKeys::horizontalGaps);
    settings.columeSpace = defaults.int32Value(PreferenceKeys::verticalGaps);
    settings.gridShadowed = defaults.boolValue(PreferenceKeys::drawShadow);
    settings.borderWidth = defaults.int32Value(PreferenceKeys::borderWidth);
    return settings;
}
