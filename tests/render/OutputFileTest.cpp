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

TEST(OutputFile, NamesFollowTheMovie)
{
    const QTemporaryDir folder;
    touch(folder.filePath(QStringLiteral("taken.jpg")));
    touch(folder.filePath(QStringLiteral("taken(1).jpg")));
    for (const auto &[movie, image] : {std::pair{u"/m/a.b.mov", u"a.b.jpg"},
                                       {u"/m/taken.mp4", u"taken(2).jpg"},
                                       {u"/m/plain", u"plain.jpg"},
                                       {u"/m/already.jpg.mp4", u"already.jpg"},
                                       {u"/m/.mp4", u".mp4.jpg"}}) {
        EXPECT_EQ(OutputFile::freePath(folder.path(), QString::fromUtf16(movie), QStringLiteral("jpg")),
                  folder.filePath(QString::fromUtf16(image)));
    }
}

TEST(OutputFile, NamesThatWouldBeTooLongAreCutBetweenCharacters)
{
    const QTemporaryDir folder;
    for (const QString &letter : {QStringLiteral("x"), QStringLiteral("ß"), QStringLiteral("😀")}) {
        for (int copy = 0; copy < 3; ++copy) {
            const QString movie = letter.repeated(255 / letter.toUtf8().size()) + QStringLiteral(".ts");
            const QString path = OutputFile::freePath(folder.path(), movie, QStringLiteral("tiff"));
            EXPECT_FALSE(path.toUtf8().contains('?'));
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
    if (geteuid() == 0) { // only root can take another identity
        ASSERT_EQ(seteuid(65534), 0);
        EXPECT_FALSE(OutputFile::isWritableFolder(folder.path()));
        ASSERT_EQ(seteuid(0), 0);
    }
}

} // namespace
