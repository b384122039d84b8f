#pragma once

#include <QString>

#include <cstdint>
#include <span>

class VXMediaInfoItem;

/// The bits of "MetadataTextKey": which texts stand on a collage.
enum class MetadataItem : std::int32_t {
    TimeStamp = 0x1,    ///< on each tile
    Milliseconds = 0x2, ///< kept for the preference pane; changes no text
    FileName = 0x4,
    FileSize = 0x8,
    Resolution = 0x10,
    Duration = 0x20,
    CreationDate = 0x40,
    FramesPerSecond = 0x80,
    CodecName = 0x100,
    Bitrate = 0x200,
};

/// An item: its check box in the preferences and its line. The time stamps have no line.
struct MetadataLine {
    MetadataItem item;
    const char *checkBox; ///< object name
    QStringView label;    ///< empty for what is no line of the block
    QString (*value)(const VXMediaInfoItem &);
};

/// Every item once, in the order of the lines.
std::span<const MetadataLine> metadataLines();

/// Whether the bit set holds the item.
constexpr bool holds(std::int32_t bits, MetadataItem item)
{
    return (bits & static_cast<std::int32_t>(item)) != 0;
}

/// The block of facts about the movie at the top of its collage: one line per item in `bits`, each ending in a
/// newline. Reads the file's size and date from the disk; a file that is gone has 0.0 MB and no date.
QString getMetaStrWithObject(const VXMediaInfoItem &movie, std::int32_t bits);
