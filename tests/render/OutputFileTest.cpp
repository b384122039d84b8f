#include "render/OutputFile.h"

#include "support/ScratchFolder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(OutputFile, NamesFollowTheMovieAndAreCutBetweenCharacters)
{
    const ScratchFolder folder;
    for (const auto &[movie, image] : {std::pair{"/m/a.b.mov", "a.b.tiff"}, {"/m/.mp4", ".mp4.tiff"}}) {
        EXPECT_EQ(OutputFile::freePath(folder.path(), QString::fromUtf8(movie), u"tiff"_s), folder.path(image));
    }
    for (const QString &letter : {u"x"_s, u"ß"_s, u"😀"_s}) {
        for (int copy = 0; copy < 3; ++copy) {
            const QString movie = letter.repeated(255 / letter.toUtf8().size()) + u".ts";
            const QByteArray image = OutputFile::freePath(folder.path(), movie, u"tiff"_s).toUtf8();
            EXPECT_FALSE(image.contains('?'));
            folder.write(image.mid(folder.bytes().size() + 1)); // fails when too long, and makes the next one collide
        }
    }
    EXPECT_EQ(folder.names().size(), 9);
}
