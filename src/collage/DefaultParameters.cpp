#include "collage/DefaultParameters.h"

#include "Shared/PreferenceKeys.h"
#include "collage/CollageForm.h"
#include "media/VXMediaInfoItem.h"
#include "platform/store/StoredColor.h"

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

void DefaultParameters::store(UserDefaults &defaults, const CollageForm &form)
{
    defaults.setText(PreferenceKeys::backgroundColor, ColorArchive::archive(form.backgroundColor));
    defaults.setInteger(PreferenceKeys::rowNumber, form.rowNumber);
    defaults.setInteger(PreferenceKeys::columeNumber, form.columeNumber);
    defaults.setInteger(PreferenceKeys::tileWidth, form.gridWidth);
    defaults.setText(PreferenceKeys::tileBorderColor, ColorArchive::archive(form.gridBorderColor));
    defaults.setInteger(PreferenceKeys::tileBorderWidth, form.gridBorderWidth);
    // Not crossed, unlike at reading: what is stored as horizontal becomes the gap between rows of the next movie.
    defaults.setInteger(PreferenceKeys::horizontalGaps, form.columeSpace);
    defaults.setInteger(PreferenceKeys::verticalGaps, form.rowSpace);
    defaults.setBool(PreferenceKeys::drawShadow, form.gridShadowed);
    defaults.setInteger(PreferenceKeys::borderWidth, form.lblBorderWidth);
    defaults.synchronize();
}
