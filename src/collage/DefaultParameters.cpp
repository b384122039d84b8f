#include "collage/DefaultParameters.h"

#include "collage/CollageForm.h"
#include "media/VXMediaInfoItem.h"
#include "platform/store/ColorArchive.h"
#include "platform/store/UserDefaults.h"

namespace {

// Longer movies leave out this much at either end, where there are only black frames and credits.
constexpr double leaderSeconds = 2.0;

} // namespace

CollageSettings DefaultParameters::settingsOfNewMovie(const UserDefaults &defaults, const VXMediaInfoItem &movie)
{
    CollageSettings settings;
    if (movie.duration > 2.0 * leaderSeconds) {
        settings.startPoint = leaderSeconds;
        settings.endPoint = movie.duration - leaderSeconds;
    }
    for (const CollageFields::Number &field : CollageFields::numbers) {
        if (!field.readFrom.isEmpty()) {
            field.put(settings, defaults.int32Value(field.readFrom));
        }
    }
    for (const CollageFields::Color &field : CollageFields::colors) {
        settings.*field.member = ColorArchive::storedColor(defaults, field.key, field.whenAbsent);
    }
    for (const CollageFields::Switch &field : CollageFields::switches) {
        if (!field.key.isEmpty()) {
            settings.*field.member = defaults.boolValue(field.key);
        }
    }
    settings.gridHeight = settings.gridWidth * movie.pixHeight / movie.pixWidth;
    return settings;
}

void DefaultParameters::store(UserDefaults &defaults, const CollageForm &form)
{
    for (std::size_t row = 0; row < form.numbers.size(); ++row) {
        if (const QLatin1StringView key = CollageFields::numbers[row].storedUnder; !key.isEmpty()) {
            defaults.setInteger(key, form.numbers[row]);
        }
    }
    for (std::size_t row = 0; row < form.colors.size(); ++row) {
        defaults.setText(CollageFields::colors[row].key, ColorArchive::archive(form.colors[row]));
    }
    for (std::size_t row = 0; row < form.switches.size(); ++row) {
        if (const QLatin1StringView key = CollageFields::switches[row].key; !key.isEmpty()) {
            defaults.setBool(key, form.switches[row]);
        }
    }
    defaults.synchronize();
}
