#pragma once

#include <QLatin1StringView>
#include <QString>

#include <optional>
#include <span>

/// Every key of the user defaults store, once. The spelling is the key, odd ones included: stores in use hold them.
namespace PreferenceKeys {

// The collage of a newly loaded movie.
inline constexpr QLatin1StringView rowNumber{"DefaultRowNumber"};
inline constexpr QLatin1StringView columeNumber{"DefaultColumeNumber"};
inline constexpr QLatin1StringView tileWidth{"DefaultTileWidth"};
inline constexpr QLatin1StringView backgroundColor{"DefultBkgColor"};
inline constexpr QLatin1StringView tileBorderColor{"DefaultTileBorderColor"};
inline constexpr QLatin1StringView tileBorderWidth{"DefaultTileBorderWidth"};
inline constexpr QLatin1StringView horizontalGaps{"DefaultHGaps"};
inline constexpr QLatin1StringView verticalGaps{"DefaultVGaps"};
inline constexpr QLatin1StringView drawShadow{"DefaultDrawShadow"};
inline constexpr QLatin1StringView borderWidth{"DefaultBorderWidth"};

// The export.
inline constexpr QLatin1StringView outputFormat{"OutputFormatKey"};
inline constexpr QLatin1StringView revealInFinder{"RevealFinderKey"};
inline constexpr QLatin1StringView openAfterFinish{"OpenAfterFinishKey"};
inline constexpr QLatin1StringView clearAfterFinish{"ClearAfterFinishKey"};
inline constexpr QLatin1StringView outputFolder{"OutputFolderKey"};
inline constexpr QLatin1StringView sameAsOrigin{"SameAsOriginKey"};

// The texts on a collage.
inline constexpr QLatin1StringView metadataText{"MetadataTextKey"};
inline constexpr QLatin1StringView gridTextPosition{"GridTextPositionKey"};
inline constexpr QLatin1StringView metadataTextColor{"MetadatTextcolorKey"};
inline constexpr QLatin1StringView gridTextColor{"GridTextcolorKey"};

// Loading, folders, remote flags, identity.
inline constexpr QLatin1StringView appSupportVob{"AppSupportVob"};
inline constexpr QLatin1StringView bookmarks{"BookmarksKey"};
inline constexpr QLatin1StringView supportVob{"SupportVOBKey"};
inline constexpr QLatin1StringView experimental{"ExperimentalKey"};
inline constexpr QLatin1StringView guid{"guid"};

// The preferences window.
inline constexpr QLatin1StringView preferencesTopLeft{"MASPreferences Frame Top Left"};
inline constexpr QLatin1StringView preferencesSelection{"MASPreferences Selected Identifier View"};
inline constexpr QLatin1StringView mainWindowGeometry{"MainWindowGeometry"};
inline constexpr QLatin1StringView movieTableColumns{"MovieTableColumns"};
/// Where the size of the pane with this identifier is kept.
QString preferencesFrame(QStringView paneIdentifier);

/// What a key holds.
enum class Kind { Boolean, Integer, Text, Color, Array };

struct Entry {
    QLatin1StringView key;
    Kind kind;
};

/// All keys above but those of windows, which are no settings; in that order.
std::span<const Entry> all();

/// What the key holds; nothing for a text that is no key of all().
std::optional<Kind> kindOf(QStringView key);

} // namespace PreferenceKeys
