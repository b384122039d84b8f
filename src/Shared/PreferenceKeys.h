#pragma once

#include <QAnyStringView>
#include <QLatin1StringView>
#include <QString>

#include <array>
#include <optional>

/// Every setting of the user defaults store: its key, what it holds, and what it is while the user has not written it.
/// A test compares the defaults with the property list that seeds the store. Keys keep their spelling, wrong or not,
/// because stores in use have it.
namespace PreferenceKeys {

/// What a key holds.
enum class Kind { Boolean, Integer, Text, Color, Array };

/// A setting. It stands for its key wherever a key is asked for.
struct Setting {
    QLatin1StringView key;
    Kind kind;
    QLatin1StringView initial; ///< the registered default as text, "~" for the user's home; empty when there is none

    constexpr Setting(const char *name, Kind what, const char *registered = "") :
        key(name), kind(what), initial(registered)
    {
    }
    constexpr operator QLatin1StringView() const { return key; }
    operator QAnyStringView() const { return key; }
};

// The collage of a newly loaded movie.
inline constexpr Setting rowNumber{"DefaultRowNumber", Kind::Integer, "2"};
inline constexpr Setting columeNumber{"DefaultColumeNumber", Kind::Integer, "3"};
inline constexpr Setting tileWidth{"DefaultTileWidth", Kind::Integer, "300"};
inline constexpr Setting backgroundColor{"DefultBkgColor", Kind::Color, "#ff000000"};
inline constexpr Setting tileBorderColor{"DefaultTileBorderColor", Kind::Color, "#ffffff00"};
inline constexpr Setting tileBorderWidth{"DefaultTileBorderWidth", Kind::Integer, "3"};
inline constexpr Setting horizontalGaps{"DefaultHGaps", Kind::Integer, "4"};
inline constexpr Setting verticalGaps{"DefaultVGaps", Kind::Integer, "4"};
inline constexpr Setting drawShadow{"DefaultDrawShadow", Kind::Boolean, "false"};
inline constexpr Setting borderWidth{"DefaultBorderWidth", Kind::Integer, "20"};

// The export.
inline constexpr Setting outputFormat{"OutputFormatKey", Kind::Integer, "0"};
inline constexpr Setting frameSource{"FrameSourceKey", Kind::Integer};
inline constexpr Setting displayAspect{"DisplayAspectKey", Kind::Boolean, "false"};
inline constexpr Setting deinterlace{"DeinterlaceKey", Kind::Boolean, "false"};
inline constexpr Setting toneMap{"ToneMapKey", Kind::Boolean, "false"};
inline constexpr Setting skipBlank{"SkipBlankKey", Kind::Boolean, "false"};
inline constexpr Setting revealInFinder{"RevealFinderKey", Kind::Boolean, "false"};
inline constexpr Setting openAfterFinish{"OpenAfterFinishKey", Kind::Boolean, "false"};
inline constexpr Setting clearAfterFinish{"ClearAfterFinishKey", Kind::Boolean, "false"};
inline constexpr Setting outputFolder{"OutputFolderKey", Kind::Text, "~/Pictures/Tessarine"};
inline constexpr Setting sameAsOrigin{"SameAsOriginKey", Kind::Boolean, "false"};

// The texts on a collage.
inline constexpr Setting metadataText{"MetadataTextKey", Kind::Integer, "1021"};
inline constexpr Setting gridTextPosition{"GridTextPositionKey", Kind::Integer, "0"};
inline constexpr Setting metadataTextColor{"MetadatTextcolorKey", Kind::Color, "#ffffffff"};
inline constexpr Setting gridTextColor{"GridTextcolorKey", Kind::Color, "#ff000000"};

// Loading, folders, remote flags, identity.
inline constexpr Setting appSupportVob{"AppSupportVob", Kind::Boolean};
inline constexpr Setting bookmarks{"BookmarksKey", Kind::Array};
inline constexpr Setting supportVob{"SupportVOBKey", Kind::Boolean};
inline constexpr Setting experimental{"ExperimentalKey", Kind::Boolean};
inline constexpr Setting guid{"guid", Kind::Text};

/// All of the above.
inline constexpr std::array all{
    rowNumber,        columeNumber,  tileWidth,    backgroundColor, tileBorderColor,  tileBorderWidth,
    horizontalGaps,   verticalGaps,  drawShadow,   borderWidth,     outputFormat,     frameSource,
    displayAspect,    deinterlace,   toneMap,      skipBlank,       revealInFinder,   openAfterFinish,
    clearAfterFinish, outputFolder,  sameAsOrigin, metadataText,    gridTextPosition, metadataTextColor,
    gridTextColor,    appSupportVob, bookmarks,    supportVob,      experimental,     guid,
};

/// What the key holds; nothing for a text that is no key of a setting.
std::optional<Kind> kindOf(QStringView key);

// The places of windows, which are no settings.
inline constexpr QLatin1StringView preferencesTopLeft{"MASPreferences Frame Top Left"};
inline constexpr QLatin1StringView preferencesSelection{"MASPreferences Selected Identifier View"};
inline constexpr QLatin1StringView mainWindowGeometry{"MainWindowGeometry"};
inline constexpr QLatin1StringView movieTableColumns{"MovieTableColumns"};
/// Where the size of the pane with this identifier is kept.
QString preferencesFrame(QStringView paneIdentifier);

/// Posted in the NotificationCenter when the user has chosen other metadata texts.
inline constexpr QLatin1StringView metadataTextChanged{"MetadataTextChanged"};

} // namespace PreferenceKeys
