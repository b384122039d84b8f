#include "Shared/PreferenceKeys.h"

#include <algorithm>
#include <array>

namespace PreferenceKeys {
namespace {

constexpr std::array entries{
    Entry{rowNumber, Kind::Integer},
    Entry{columeNumber, Kind::Integer},
    Entry{tileWidth, Kind::Integer},
    Entry{backgroundColor, Kind::Color},
    Entry{tileBorderColor, Kind::Color},
    Entry{tileBorderWidth, Kind::Integer},
    Entry{horizontalGaps, Kind::Integer},
    Entry{verticalGaps, Kind::Integer},
    Entry{drawShadow, Kind::Boolean},
    Entry{borderWidth, Kind::Integer},
    Entry{outputFormat, Kind::Integer},
    Entry{revealInFinder, Kind::Boolean},
    Entry{openAfterFinish, Kind::Boolean},
    Entry{clearAfterFinish, Kind::Boolean},
    Entry{outputFolder, Kind::Text},
    Entry{sameAsOrigin, Kind::Boolean},
    Entry{metadataText, Kind::Integer},
    Entry{gridTextPosition, Kind::Integer},
    Entry{metadataTextColor, Kind::Color},
    Entry{gridTextColor, Kind::Color},
    Entry{appSupportVob, Kind::Boolean},
    Entry{bookmarks, Kind::Array},
    Entry{supportVob, Kind::Boolean},
    Entry{experimental, Kind::Boolean},
    Entry{guid, Kind::Text},
};

} // namespace

QString preferencesFrame(QStringView paneIdentifier)
{
    return u"MASPreferences " + paneIdentifier + u" Frame";
}

std::span<const Entry> all()
{
    return entries;
}

std::optional<Kind> kindOf(QStringView key)
{
    const auto found = std::ranges::find_if(entries, [key](const Entry &entry) { return key == entry.key; });
    return found == entries.end() ? std::nullopt : std::optional(found->kind);
}

} // namespace PreferenceKeys
