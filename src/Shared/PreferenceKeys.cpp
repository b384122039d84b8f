#include "Shared/PreferenceKeys.h"

#include <algorithm>
#include <array>

namespace PreferenceKeys {
namespace {

constexpr std::array settings{
    rowNumber,       columeNumber,   tileWidth,        backgroundColor,   tileBorderColor,
    tileBorderWidth, horizontalGaps, verticalGaps,     drawShadow,        borderWidth,
    outputFormat,    revealInFinder, openAfterFinish,  clearAfterFinish,  outputFolder,
    sameAsOrigin,    metadataText,   gridTextPosition, metadataTextColor, gridTextColor,
    appSupportVob,   bookmarks,      supportVob,       experimental,      guid,
};

} // namespace

QString preferencesFrame(QStringView paneIdentifier)
{
    return u"MASPreferences " + paneIdentifier + u" Frame";
}

std::span<const Setting> all()
{
    return settings;
}

std::optional<Kind> kindOf(QStringView key)
{
    const auto found = std::ranges::find_if(settings, [key](const Setting &setting) { return key == setting.key; });
    return found == settings.end() ? std::nullopt : std::optional(found->kind);
}

} // namespace PreferenceKeys
