#include "collage/CollageForm.h"

std::int32_t automaticGridHeight(const VXMediaInfoItem &movie, std::int32_t gridWidth)
{
    if (movie.pixWidth <= 0) {
        return 0;
    }
    const auto product = static_cast<std::uint32_t>(movie.pixHeight) * static_cast<std::uint32_t>(gridWidth);
    return static_cast<std::int32_t>(product) / movie.pixWidth;
}

CollageSettings settingsFromForm(const CollageForm &form, const VXMediaInfoItem &movie)
{
    CollageSettings settings;
    settings.startPoint = form.dStart;
    settings.endPoint = form.dStart + form.dLength;
    for (std::size_t row = 0; row < form.numbers.size(); ++row) {
        CollageFields::numbers[row].put(settings, form.numbers[row]);
    }
    for (std::size_t row = 0; row < form.colors.size(); ++row) {
        settings.*CollageFields::colors[row].member = form.colors[row];
    }
    for (std::size_t row = 0; row < form.switches.size(); ++row) {
        settings.*CollageFields::switches[row].member = form.switches[row];
    }
    settings.borderWidth = form.slidBorderWidth;
    if (settings.autoHeight) {
        settings.gridHeight = automaticGridHeight(movie, static_cast<std::int32_t>(settings.gridWidth));
    }
    return settings;
}
