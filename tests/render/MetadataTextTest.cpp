#include "render/MetadataText.h"

#include "media/VXMediaInfoItem.h"
#include "support/ScratchFolder.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

TEST(MetadataText, ShowsTheChosenFactsInTheirOrder)
{
    VXMediaInfoItem movie;
    movie.filePath = QStringLiteral("/missing/my\nmovie.mkv"); // a name cannot forge another line
    movie.pixWidth = 1920, movie.pixHeight = 1080;
    movie.duration = 3725.9;
    movie.videoFps = 29.97;
    movie.strVideoCodecName = QStringLiteral("h264");
    movie.videoBitrate = 1'500'000.0;
    EXPECT_EQ(getMetaStrWithObject(movie, 0x3), QString());
    EXPECT_EQ(getMetaStrWithObject(movie, 0x84), QStringLiteral("File Name: my\uFFFDmovie.mkv\nFPS: 30\n"));
    EXPECT_EQ(getMetaStrWithObject(movie, 0x3FC),
              QStringLiteral("File Name: my\uFFFDmovie.mkv\nFile Size: 0.0 MB\nResolution: 1920 * 1080\n"
                             "Duration: 01:02:05\nCreation Date: \nFPS: 30\nCodec Name: h264\nBitrate: 1500.0Kbps\n"));
}

TEST(MetadataText, SizesAreDecimalMegabytesAndDatesUniversalTime)
{
    const ScratchFolder folder;
    VXMediaInfoItem movie;
    for (const auto &[bytes, text] : {std::pair{1'048'576, QStringLiteral("1.0")}, {949'999, QStringLiteral("0.9")}}) {
        movie.filePath = folder.write("movie", QByteArray(bytes, 'x'));
        EXPECT_EQ(getMetaStrWithObject(movie, 0x8), u"File Size: " + text + u" MB\n");
    }
    // A file system without creation dates leaves the line without one.
    const QRegularExpression form(u"^Creation Date: (\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000)?\n$"_qs);
    EXPECT_TRUE(form.match(getMetaStrWithObject(movie, 0x40)).hasMatch());
}
