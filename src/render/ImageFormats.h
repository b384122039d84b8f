#pragma once

#include <QStringView>

#include <algorithm>
#include <array>

/// A type of image file that the user can choose.
struct ImageFormat {
    QStringView extension; ///< of the files, and what the command line calls it
    QStringView alias;     ///< another extension of this type; empty where there is none
    QStringView title;     ///< in menus
    const char *writer;    ///< the toolkit's name for it
    bool hasTransparency;
};

/// In the order of their numbers in the settings: a new one goes to the end.
inline constexpr std::array imageFormats{
    ImageFormat{u"jpg", u"jpeg", u"JPEG", "jpeg", false},
    ImageFormat{u"png", u"", u"PNG", "png", true},
    ImageFormat{u"bmp", u"", u"BMP", "bmp", false},
    ImageFormat{u"tiff", u"tif", u"TIFF", "tiff", true},
};
