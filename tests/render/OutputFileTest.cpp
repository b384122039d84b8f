#include "render/OutputFile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

void touch(const QString &path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
}

TEST(OutputFile, FormatsOutsideTheTableHaveNoExtension)
{
    EXPECT_EQ(OutputFile::extensionForFormat(0), QStringLiteral("jpg"));
    EXPECT_EQ(OutputFile::extensionForFormat(3), QStringLiteral("tiff"));
    for (const std::int64_t format : {std::int64_t{-1}, std::int64_t{4}, INT64_MAX, INT64_MIN}) {
        EXPECT_FALSE(OutputFile::extensionForFormat(format)) << format;
    }
}

TEST(OutputFile, NamesFollowTheMovie)
{
    const QTemporaryDir folder;
    touch(folder.filePath(QStringLiteral("taken.jpg")));
    touch(folder.filePath(QStringLiteral("taken(1).jpg")));
    struct Case {
        const char *movie;
        const char *image;
    };
    for (const Case &name :
         {Case{"/m/a.b.mov", "a.b.jpg"}, Case{"/m/taken.mp4", "taken(2).jpg"}, Case{"/m/plain", "plain.jpg"},
          Case{"/m/already.jpg.mp4", "already.jpg"}, Case{"/m/.mp4", ".mp4.jpg"}}) {
        EXPECT_EQ(OutputFile::freePath(folder.path(), QString::fromUtf8(name.movie), QStringLiteral("jpg")),
                  folder.filePath(QString::fromUtf8(name.image)));
    }
}

TEST(OutputFile, NamesThatWouldBeTooLongAreCutBetweenCharacters)
{
    const QTemporaryDir folder;
    for (const QString &letter : {QStringLiteral("x"), QStringLiteral("ß"), QStringLiteral("😀")}) {
        const QString movie =
            QStringLiteral("/m/") + letter.repeated(255 / letter.toUtf8().size()) + QStringLiteral(".ts");
        for (int copy = 0; copy < 3; ++copy) {
            const QString path = OutputFile::freePath(folder.path(), movie, QStringLiteral("tiff"));
            EXPECT_LE(path.section(u'/', -1).toUtf8().size(), 255);
            EXPECT_FALSE(path.contains(QChar(QChar::ReplacementCharacter)));
            touch(path); // fails on a name that is too long, and makes the next one collide
        }
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 9);
}

TEST(OutputFile, AsksWhetherThisProcessMayWrite)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(OutputFile::isWritableFolder(folder.path()));
    EXPECT_FALSE(OutputFile::isWritableFolder(folder.filePath(QStringLiteral("missing"))));
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can take another identity";
    }
    ASSERT_EQ(seteuid(65534), 0);
    EXPECT_FALSE(OutputFile::isWritableFolder(folder.path()));
    ASSERT_EQ(seteuid(0), 0);
}

} // namespace
