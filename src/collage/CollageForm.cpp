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
    settings.backgroundColor = form.backgroundColor;
    settings.rowNumber = form.rowNumber;
    settings.columeNumber = form.columeNumber;
    settings.gridBorderColor = form.gridBorderColor;
    settings.gridBorderWidth = form.gridBorderWidth;
    settings.rowSpace = form.rowSpace;
    settings.columeSpace = form.columeSpace;
    settings.borderWidth = form.slidBorderWidth;
    settings.gridShadowed = form.gridShadowed;
    settings.autoHeight = form.autoHeight;
    settings.gridWidth = form.gridWidth;
    settings.gridHeight = form.autoHeight ? automaticGridHeight(movie, form.gridWidth) : form.gridHeight;
    return settings;
}
