#pragma once

#include <QColor>
#include <QFont>

#include <cstdint>

class UserDefaults;

/// Colour and font of a text.
struct TextStyle {
    QColor color;
    QFont font;
};

/// The two text styles of a collage, read once per export.
struct CollageTextStyles {
    TextStyle metadata;
    TextStyle timeStamp;

    static CollageTextStyles fromDefaults(const UserDefaults &defaults);
};

/// Which texts stand on a collage, read for each collage.
struct CollageTextItems {
    std::int32_t metadataBits = 0;  ///< see MetadataItem
    std::int64_t stampPosition = 0; ///< corner of the time stamps, see CollageLayout::stampPoint()

    static CollageTextItems fromDefaults(const UserDefaults &defaults);
};
