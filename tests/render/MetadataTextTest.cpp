#include "render/MetadataText.h"

#include "media/VXMediaInfoItem.h"
#include "support/ScratchFolder.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(MetadataText, ShowsTheChosenFactsInTheirOrder)
{
    VXMediaInfoItem movie;
    movie.filePath = u"/missing/my\nmovie.mkv"_s; // a name cannot forge another line
    movie.pixWidth = 1920, movie.pixHeight = 1080;
    movie.duration = 3725.9;
    movie.videoFps = 29.97;
    movie.strVideoCodecName = u"h264"_s;
    movie.videoBitrate = 1'500'000.0;
    EXPECT_EQ(getMetaStrWithObject(movie, 0x3), QString());
    EXPECT_EQ(getMetaStrWithObject(movie, 0x3FC),
              u"File Name: my\uFFFDmovie.mkv\nFile Size: 0.0 MB\nResolution: 1920 * 1080\n"
              "Duration: 01:02:05\nCreation Date: \nFPS: 30\nCodec Name: h264\nBitrate: 1500.0Kbps\n"_s);
}

TEST(MetadataText, SizesAreDecimalMegabytesAndDatesUniversalTime)
{
    const ScratchFolder folder;
    VXMediaInfoItem movie;
    for (const auto &[bytes, text] : {std::pair{1'048'576, u"1.0"_s}, {949'999, u"0.9"_s}}) {
        movie.filePath = folder.write("movie", QByteArray(bytes, 'x'));
        EXPECT_EQ(getMetaStrWithObject(movie, 0x8), u"File Size: " + text + u" MB\n");
    }
    // A file system without creation dates leaves the line without one.
    const QRegularExpression form(u"^Creation Date: (\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000)?\n$"_s);
    EXPECT_TRUE(form.match(getMetaStrWithObject(movie, 0x40)).hasMatch());
}
