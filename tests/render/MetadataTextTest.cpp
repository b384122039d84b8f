#include "render/MetadataText.h"

#include "media/VXMediaInfoItem.h"

#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class MetadataTextTest : public testing::Test {
protected:
    MetadataTextTest()
    {
        movie.filePath = folder.filePath(QStringLiteral("my movie.mkv"));
        movie.pixWidth = 1920;
        movie.pixHeight = 1080;
        movie.duration = 3725.9;
        movie.videoFps = 29.97;
        movie.strVideoCodecName = QStringLiteral("h264");
        movie.videoBitrate = 1'500'000.0;
    }

    void makeFile(qint64 size)
    {
        QFile file(movie.filePath);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_TRUE(file.resize(size));
    }

    QTemporaryDir folder;
    VXMediaInfoItem movie;
};

TEST_F(MetadataTextTest, ShowsTheChosenFactsInTheirOrder)
{
    EXPECT_EQ(getMetaStrWithObject(movie, 0), QString());
    EXPECT_EQ(getMetaStrWithObject(movie, 0x3), QString());
    EXPECT_EQ(getMetaStrWithObject(movie, 0x3FC),
              QStringLiteral("File Name: my movie.mkv\nFile Size: 0.0 MB\nResolution: 1920 * 1080\n"
                             "Duration: 01:02:05\nCreation Date: \nFPS: 30\nCodec Name: h264\nBitrate: 1500.0Kbps\n"));
    EXPECT_EQ(getMetaStrWithObject(movie, 0x80 | 0x4), QStringLiteral("File Name: my movie.mkv\nFPS: 30\n"));
}

TEST_F(MetadataTextTest, SizesAreDecimalMegabytes)
{
    for (const auto &[bytes, text] :
         {std::pair<qint64, const char *>{1'048'576, "1.0"}, {999'999, "1.0"}, {949'999, "0.9"}}) {
        makeFile(bytes);
        EXPECT_EQ(getMetaStrWithObject(movie, 0x8), QStringLiteral("File Size: %1 MB\n").arg(QLatin1StringView(text)));
    }
}

TEST_F(MetadataTextTest, TheDateIsWrittenInUniversalTime)
{
    makeFile(1);
    const QString line = getMetaStrWithObject(movie, 0x40);
    // A file system without creation dates leaves the line without one.
    const QRegularExpression form(
        QStringLiteral("^Creation Date: (\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d \\+0000)?\n$"));
    EXPECT_TRUE(form.match(line).hasMatch()) << line.toStdString();
}

TEST_F(MetadataTextTest, ANameCannotForgeAnotherLine)
{
    movie.filePath = QStringLiteral("/x/a\nDuration: 99.mkv");
    EXPECT_EQ(getMetaStrWithObject(movie, 0x4).count(u'\n'), 1);
}

} // namespace
