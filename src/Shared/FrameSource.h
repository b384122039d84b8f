#pragma once

#include <QStringView>

#include <array>
#include <cstddef>
#include <cstdint>

/// Where the pictures of a movie come from.
enum class FrameSource {
    Tool,  ///< the ffmpeg tool
    Exact, ///< the pictures that the tool would give, decoded in this process
    Key,   ///< the key frame at or before the time, decoded in this process
};

/// What the command line calls them, in the order of their numbers in the settings.
inline constexpr std::array<QStringView, 3> frameSourceNames{u"tool", u"exact", u"key"};

/// The source of that number; the tool where there is none.
constexpr FrameSource frameSourceOf(std::int64_t number)
{
    const bool isKnown = number >= 0 && number < std::int64_t{frameSourceNames.size()};
    return isKnown ? static_cast<FrameSource>(number) : FrameSource::Tool;
}
